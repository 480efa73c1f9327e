#pragma once

#include "session/Session.h"

#include <QObject>

class QAction;

/// The menu "Fêtes": the public holidays of a year, who is honoured on a day, when a first name is.
/// Without the file of name days the last two stay silent.
class CommandesFetes : public QObject {
  Q_OBJECT

 public:
  CommandesFetes(Session &session, QAction *mnuJF, QAction *mnuFete, QAction *mnuDate,
                 QObject *parent);

 private:
  void MontrerJoursFeries();
  void ChercherUnJour();
  void ChercherUnPrenom();

  Session &session_;
};
