#pragma once

#include "session/Session.h"
#include "ui/CompteRendu.h"

#include <QObject>

#include <functional>

class QAction;
class QWidget;
class SauvegardeDuJour;

/// The commands of the menu "Options" that concern the copies of the base, and the copy of each
/// day.
class CommandesSauvegarde : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    QAction *mnuRestaurer, *mnuSauvegardes;
    QAction *mnuMasquer;  ///< ticked while the user's protected records are hidden
  };

  /// `afficherRacine` leaves the record on display: what was typed is saved.
  CommandesSauvegarde(Session &session, const Actions &actions,
                      std::function<void()> afficherRacine, CompteRendu &fait, QWidget *fenetre);

 private:
  void Restaurer();
  void ChoisirDossier();

  Session &session_;
  Actions actions_;
  std::function<void()> afficherRacine_;
  CompteRendu &fait_;
  QWidget *fenetre_;
  SauvegardeDuJour *duJour_;
};
