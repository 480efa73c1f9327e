#pragma once
// The files of other programs that a user has chosen: what each of them is, and its persons.

#include "exchange/ColonnesCsv.h"
#include "exchange/GenreFichier.h"
#include "exchange/LecteurCsv.h"
#include "exchange/PersonneImportee.h"
#include "storage/Avance.h"
#include "storage/MiseAJour.h"

#include <QList>
#include <QString>

#include <functional>
#include <memory>

class AncienneBase;

/// A file that has been looked at.
struct FichierRepris {
  QString chemin;
  GenreFichier genre = GenreFichier::Inconnu;
  FormeCsv forme = {};                            ///< of a table
  Correspondances colonnes = {};                  ///< of a table, as its heads tell; may be changed
  std::shared_ptr<const AncienneBase> base = {};  ///< of an older database, read and converted

  /// Of an older database that is damaged: what could be read, a line for each table; whoever takes
  /// that over must have asked the user. Empty for any other file.
  QString Constat() const;
  /// A table of which no column names the persons.
  bool SansNom() const;
};

/// Looks at a file by what it holds, whatever its name. An older database is read whole by another
/// process, which takes its time (see `SourceJet`), and is converted by the rules of an upgrade.
/// Throws `ErreurFichier` or `ErreurBase` where nothing of it can be taken.
FichierRepris Regarder(const QString &chemin, const ReglesCopie &regles);

/// Its persons, from the first one.
std::unique_ptr<SourcePersonnes> Ouvrir(const FichierRepris &fichier, const UsagesReprise &usages);

/// What is done with files, one after another.
struct Parcours {
  std::function<void(const FichierRepris &)> avant;  ///< each
  std::function<void(PersonneImportee &&)> chacune;
  std::function<void(const FichierRepris &)> apres;
};

/// Goes through the persons of all of them, and tells how much is done; false when it was stopped.
bool Parcourir(const QList<FichierRepris> &fichiers, const UsagesReprise &usages,
               const Parcours &parcours, const Avance &avance);
