#pragma once

#include "envelope/EtatEnveloppe.h"
#include "session/Session.h"
#include "storage/Imprimantes.h"

#include <QObject>

#include <functional>

class QAction;
class QWidget;

/// What the envelope window's menus set: the printer and its paper, how the envelopes are written,
/// the links between towns and codes.
class CommandesReglages : public QObject {
  Q_OBJECT

 public:
  struct Actions {
    QAction *mnuConfigure, *mnuOptions, *mnuVCP;
  };

  /// What follows in the window.
  struct Fenetre {
    QWidget *fenetre;
    std::function<void()> autreImprimante;  ///< another one is about to be the chosen one
    std::function<void()> reformater;       ///< the addresses are written by other rules
    std::function<void()> accorder;         ///< what is shown goes by the settings
  };

  CommandesReglages(Session &session, Imprimantes &imprimantes, const EtatEnveloppe &etat,
                    const Actions &actions, Fenetre fenetre);

 private:
  void Configurer();
  /// Keeps what was confirmed for the printer, and what held for the one before.
  void GarderPrise(const ReglagesPlomex &avant, PapierEnveloppe papier);
  void ChoisirOptions();
  void RelierVilles();

  Session &session_;
  Imprimantes &imprimantes_;
  const EtatEnveloppe &etat_;
  Fenetre fenetre_;
};
