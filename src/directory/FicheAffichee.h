#pragma once

#include "address/ChaineAdresse.h"
#include "session/Session.h"
#include "storage/Lignes.h"

class PanneauFiche;

/// The record on display. It shows in the panel, where its notes may be edited. Every verb but
/// `Effacer` throws `ErreurBase`.
class FicheAffichee {
 public:
  FicheAffichee(Session &session, PanneauFiche &panneau);

  /// Shows a record. False for one that another user has deleted meanwhile, which is told: nothing
  /// is on display then.
  bool Montrer(Cle index);

  /// Writes the notes, if they have been changed. When that fails they stay on the screen, and are
  /// not written again.
  void EnregistrerNotes();

  /// Nothing is on display any more; what was typed is written before.
  void Quitter();
  /// The same, and nothing is written.
  void Effacer();

  /// Its address; an empty string for none.
  const AdresseComposee &Adresse() const { return adresse_; }

 private:
  void MontrerPhoto(const Correspondant &fiche);
  QString LigneAge(const QString &ddn) const;

  Session &session_;
  PanneauFiche &panneau_;
  Cle IndexCourant = 0;  ///< 0 for none
  AdresseComposee adresse_;
};
