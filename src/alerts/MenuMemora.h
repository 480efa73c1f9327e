#pragma once

#include "session/Session.h"

#include <QMenu>

/// The menu of the companion of the sticky notes, which both main windows have.
class MenuMemora : public QMenu {
  Q_OBJECT

 public:
  MenuMemora(Session &session, QWidget *parent);

  /// Sets the ticks anew: the other window's menu may have changed the settings.
  void MajCoches();

 signals:
  /// The settings have been changed here.
  void Change();

 private:
  void BasculerDemarrage(bool coche);
  void BasculerAssociation(bool coche);
  void Enregistrer();
  void CreerRaccourci();
  void Expliquer();
  QString Programme() const;

  Session &session_;
  QAction *mnuLancerPIDW;
  QAction *mnuAssocier;
};
