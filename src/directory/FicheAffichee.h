#pragma once

#include "address/ChaineAdresse.h"
#include "calendar/Saints.h"
#include "session/Session.h"
#include "storage/Lignes.h"

#include <optional>

class PanneauFiche;

/// The record on display. It shows in the panel, where its notes may be edited. Notes that cannot
/// be written stay on the screen until the user gives them up.
class FicheAffichee {
 public:
  FicheAffichee(Session &session, PanneauFiche &panneau);

  /// Shows a record. Notes that are being typed into the same one stay as they are. False for one
  /// that another user has deleted meanwhile: nothing is on display then. Throws `ErreurBase`.
  bool Montrer(Cle index);

  /// Shows one that stands in no table yet, with its picture as its file would hold it.
  void Apercevoir(Correspondant fiche, const std::optional<QByteArray> &photo);

  /// The record on display as the table has it now; nothing where it has gone. Throws `ErreurBase`.
  std::optional<Correspondant> Relire() const;
  /// Shows what another user has made of the record on display. What has not changed is not
  /// touched.
  void Actualiser(const Correspondant &fiche);

  /// For the moment when the focus leaves the notes: writes them once what has taken it there is
  /// done. A failure is told.
  void NotesQuittees();

  /// Before the record gives way to another, and before what needs its notes written: writes them,
  /// if they have been changed. The user is asked where another has changed them too, and where
  /// they cannot be written. False when they are to stay, and the record on display with them.
  bool LibererNotes();

  /// Something has been typed that is not in the table yet.
  bool NotesEnSuspens() const;

  /// Nothing is on display any more. What was typed is not written.
  void Effacer();

  /// Key of the record on display, 0 for none.
  Cle Index() const { return montree_.Index; }

  /// As it is shown.
  const Correspondant &Montree() const { return montree_; }

  /// Its address; an empty string for none.
  const AdresseComposee &Adresse() const { return adresse_; }

 private:
  /// False when the user goes back to the notes. Throws `ErreurBase`.
  bool EcrireNotes();
  void EcrireNotesQuittees();
  QString EchecNotes(const Erreur &erreur) const;
  void MontrerTextes(Correspondant fiche);
  /// A picture that has gone for good is told once, and taken out of the record.
  void MontrerPhoto(const Correspondant &fiche);
  bool PhotoOubliee(const QString &photo) const;
  QString LigneAge(const QString &ddn) const;
  QString LigneAVenir(const QString &ddn) const;
  QString LigneFete(const Correspondant &fiche) const;

  Session &session_;
  PanneauFiche &panneau_;
  QList<LigneSaints> saints_;  ///< none where the file cannot be read
  Correspondant montree_;      ///< as it is shown; its key is 0 for none
  AdresseComposee adresse_;
  bool notesQuittees_ = false;  ///< and not written since
  bool ecriture_ = false;       ///< the notes are being written: a box may stand before the window
};
