#pragma once

#include "envelope/Envoi.h"
#include "envelope/SuiviTirage.h"

#include <QList>
#include <QString>

/// "1 enveloppe", "8 enveloppes".
QString CombienDEnveloppes(qsizetype nombre);

/// What has become of a run, for whoever has started it.
struct BilanTirage {
  struct Ligne {
    QString nom;
    QString sort;  ///< what has become of his envelope
  };

  QString constat;      ///< how many are printed
  QString explication;  ///< why it is not all; empty where it is
  QList<Ligne> lignes;  ///< who is left first, then who has nothing to be printed, then the others
  qsizetype restantes = 0;

  /// All is printed, and there is nothing else to be known.
  bool EstEntier() const { return restantes == 0 && lignes.isEmpty(); }
};

/// Of a run that ends now. Where all is printed, only who is without an envelope stands in its
/// lines.
BilanTirage Dresser(const EtatTirage &etat, const FinEnvoi &fin);

/// Of one that ended some time ago, whose rest has just been read again.
BilanTirage DresserReste(const EtatTirage &etat);
