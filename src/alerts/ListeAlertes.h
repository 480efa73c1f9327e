#pragma once

#include "alerts/ArbreAlertes.h"
#include "platform/Boites.h"

class QAction;
class QCheckBox;
class QLabel;
class QPushButton;
class SaisieEvenement;

/// The tree with its count: it is filled from the tables, and what is deleted or brought back is
/// chosen in it. Both are done in two steps, with the boxes of the tree shown between them, and
/// exclude each other.
class ListeAlertes {
 public:
  struct Controles {
    ArbreAlertes *arbre;
    QLabel *compte;
    QCheckBox *seulementAlertes;
    QPushButton *supprimer;
    QAction *reinscrire;
  };

  /// `saisie` is emptied whenever the tree is filled.
  ListeAlertes(Boites &boites, Base &base, SaisieEvenement &saisie, const Controles &controles)
      : boites_(boites), base_(base), saisie_(saisie), c_(controles) {}

  /// With nobody in force count and entry stay as they were.
  void RemplirTVA();

  /// Asks, then deletes the selected person or event.
  void SupprimerSelection();
  void BasculerSuppression();
  void BasculerReinscription();

 private:
  void Supprimer(const QList<ArbreAlertes::Noeud> &noeuds);
  void SupprimerCoches();

  Boites &boites_;
  Base &base_;
  SaisieEvenement &saisie_;
  Controles c_;
  bool ModeSuppression = false;  ///< the boxes tell what to delete
  bool ModeReinscription =
      false;  ///< the deleted people are shown; the boxes tell whom to bring back
};
