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

  struct Programme {
    std::function<void()>
        afficherRacine;              ///< leaves the record on display: what was typed is saved
    std::function<void()> relancer;  ///< closes the program and starts it anew
  };

  CommandesSauvegarde(Session &session, const Actions &actions, Programme programme,
                      CompteRendu &fait, QWidget *fenetre);

 private:
  void Restaurer();
  void ChoisirDossier();

  Session &session_;
  Actions actions_;
  Programme programme_;
  CompteRendu &fait_;
  QWidget *fenetre_;
  SauvegardeDuJour *duJour_;
};
