#pragma once
// `Imprimantes.ini`: what was told and measured of each printer, a section each. The printer of
// `Plomex.ini` is described there too; that file knows nothing of papers and corrections.

#include "platform/Papier.h"
#include "storage/Preferences.h"
#include "storage/Reglages.h"

#include <QString>

/// What the envelopes are printed on: the A4 sheet of the tray, or themselves, fed by the long or
/// by the short edge.
enum class PapierEnveloppe : quint8 { FeuilleA4 = 0, GrandCote = 1, PetitCote = 2 };

/// Reading never fails: what is not there was never told. Writing replaces the file and throws
/// `ErreurFichier`, also where it is there and could not be read. A copy is read as the file stood.
class Imprimantes {
 public:
  explicit Imprimantes(const QString &appPath);

  /// These settings with the printer's own orientation, edge, place, margins and shifts, and its
  /// name; as they are where nothing was told of it.
  ReglagesPlomex Reglages(const QString &appareil, ReglagesPlomex plomex) const;
  PapierEnveloppe PapierDe(const QString &appareil) const;
  void Garder(const ReglagesPlomex &plomex, PapierEnveloppe papier);

  /// What was measured for a paper; what changes nothing where nothing was.
  Correction CorrectionDe(const QString &appareil, const Papier &papier) const;
  void Garder(const QString &appareil, const Papier &papier, const Correction &correction);

  /// Whether the correction for the upright A4 sheet is the printed list's too.
  bool CorrigeListe(const QString &appareil) const;
  void CorrigerListe(const QString &appareil, bool corriger);

 private:
  bool EstReglee(const QString &appareil) const;

  Preferences fichier_;
};
