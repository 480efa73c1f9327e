#pragma once

#include "alerts/ArbreAlertes.h"
#include "platform/Boites.h"

#include <QWidget>

#include <memory>

class QAction;
class QMenu;

namespace Ui {
class ListeAlertes;
}

/// The people of the alerts with their events, their count and what is done with them. What is to
/// be deleted, and who is to be brought back, is chosen in two steps, with the boxes of the tree
/// shown between them; the two exclude each other.
class ListeAlertes : public QWidget {
  Q_OBJECT

 public:
  explicit ListeAlertes(QWidget *parent = nullptr);
  ~ListeAlertes() override;

  void Relier(Boites &boites, Base &base);
  /// The menu item that brings people back. It belongs to the list.
  QAction *ActionReinscrire() const;

  /// With nobody in force count and choice stay as they were.
  void Remplir();
  /// Shows what others have changed meanwhile. The selection stays, as does what is being ticked.
  void Actualiser();
  /// Offers to take over the correspondents, as long as there is no person at all.
  void ProposerImport();

 signals:
  void NoeudChoisi(const ArbreAlertes::Noeud &noeud);
  /// What was chosen is so no more.
  void ChoixPerdu();
  /// People and events have been read anew.
  void Relue();
  /// Of a person who is to stand in the directory too.
  void VelmiraDemande();

 private:
  /// Shows people and count as they are now; false with nobody in force.
  bool Relire();
  void Choisir(const ArbreAlertes::Noeud &noeud);
  void Restreindre(bool seulementAlertes);
  void AjouterPersonne();
  void ModifierPersonne();
  /// Asks, then deletes the selected person or event.
  void SupprimerSelection();
  void BasculerSuppression();
  void SupprimerCoches();
  void Supprimer(const QList<ArbreAlertes::Noeud> &noeuds);
  void BasculerReinscription();

  std::unique_ptr<Ui::ListeAlertes> ui_;
  QMenu *mnuInvOp_;
  Boites *boites_ = nullptr;
  Base *base_ = nullptr;
  qint64 changements_ = 0;       ///< of the database when it was read last
  bool ModeSuppression = false;  ///< the boxes tell what to delete
  bool ModeReinscription =
      false;  ///< the deleted people are shown; the boxes tell whom to bring back
};
