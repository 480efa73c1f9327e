#pragma once

#include "alerts/ArbreAlertes.h"
#include "directory/Repertoire.h"
#include "session/Session.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmOptionsAnn;
}

/// The window of the alerts: people and their events, the search for what is due, and when the
/// companion of the alerts starts.
class FrmOptionsAnn : public QDialog {
  Q_OBJECT

 public:
  FrmOptionsAnn(Session &session, Repertoire &repertoire, QWidget *parent);
  ~FrmOptionsAnn() override;

 public slots:
  /// However it is closed: asks first where an event has been entered and not recorded.
  void reject() override;

 protected:
  bool event(QEvent *evenement) override;
  void showEvent(QShowEvent *evenement) override;

 private:
  void Charger();
  void Brancher();
  void LireOptions();

  void Choisir(const ArbreAlertes::Noeud &noeud);
  /// What was chosen has gone: the list is read again.
  void AnnoncerDisparition(const QString &texte);
  void AjouterVelmira();

  void PoserAnnulation();
  /// Shows what has been taken back, or done again.
  void MontrerReprise();
  void VenirDevant();
  void Actualiser();
  void MontrerProchaines();
  void Rechercher();
  void SignalerSansDate(const QList<EvenementJoint> &evenements);
  void EnregistrerOptions();
  void Expliquer();

  Session &session_;
  Repertoire &repertoire_;
  std::unique_ptr<Ui::FrmOptionsAnn> ui_;
  bool revient_ = true;  ///< the next activation is one, not the end of a box of this window
};
