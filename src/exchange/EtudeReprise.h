#pragma once
// What a taking over would meet, before anything is written: for the user who chooses.

#include "exchange/Confrontation.h"
#include "exchange/FichierRepris.h"
#include "exchange/Reprise.h"
#include "storage/Avance.h"
#include "storage/Base.h"

#include <QList>
#include <QString>

/// Somebody who is there already, and of whom the file says more or otherwise.
struct Rencontre {
  Correspondant presente;
  PersonneImportee personne;  ///< its picture without the bytes
  Confrontation faite;
};

struct EtudeReprise {
  static constexpr qsizetype kPremieres = 100, kRencontres = 10'000;
  static constexpr qsizetype kImages = 64 << 20;  ///< bytes of all pictures

  /// Of one file, in the order in which they were given.
  struct DuFichier {
    qsizetype fiches = 0;  ///< the refused ones counted
    qsizetype refusees = 0;
  };
  QList<DuFichier> fichiers;
  qsizetype nouvelles = 0;   ///< whom the directory has no record for
  qsizetype identiques = 0;  ///< who stand there with all that the file says
  /// Of the new ones, those whose name an earlier one of the files bears: they become one record
  /// where they do not contradict each other.
  qsizetype repetees = 0;
  /// The others, the first `kRencontres`; `tues` counts what is left out.
  QList<Rencontre> rencontres;
  qsizetype tues = 0;
  /// The first `kPremieres` of each file, a picture with its bytes as long as all are within
  /// `kImages`; without those that are refused or hidden from the user.
  QList<PersonneImportee> premieres;
  BilanReprise::Chapitre refus;        ///< place, name and reason
  BilanReprise::Chapitre memeAdresse;  ///< two names with the same mail or number
  bool arretee = false;                ///< nothing is counted then
};

/// Reads the files and the directory, and writes nothing, nor keeps anybody from writing. Throws
/// `ErreurBase` and `ErreurFichier`.
EtudeReprise EtudierReprise(Base &base, const QList<FichierRepris> &fichiers,
                            const UsagesReprise &usages, const QString &utilisateur,
                            const Avance &avance);
