#pragma once
// An older database as a source of persons.

#include "exchange/PersonneImportee.h"
#include "storage/MiseAJour.h"
#include "storage/ReunionTables.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// A database in the Jet format or one of ours, whatever its age: read whole, and its rows
/// converted by the rules of an upgrade into a file of its own, which goes with this.
class AncienneBase {
 public:
  /// Reads and converts, which takes its time. Throws `ErreurBase` or `ErreurFichier` where nothing
  /// of it can be taken, also for a database of a newer version.
  AncienneBase(const QString &chemin, const ReglesCopie &regles);

  /// Of one that is damaged what could be read, a line for each table; empty for a whole one.
  const QString &Constat() const { return constat_; }
  /// Whether it is one of the first years, and no copy of one of ours.
  bool EstDesDebuts() const { return jet_; }
  /// By which its events name people and kinds of event of the converted one.
  const ClesAlertes &Cles() const { return cles_; }
  /// What the conversion has taken from the numbers of a row, which keeps digits only: the numbers
  /// as they stood, each with its label. `rang` from 1.
  QStringList NumerosPerdus(qsizetype rang, const Correspondant &convertie) const;
  /// The database with the converted rows.
  QString Convertie() const { return dossier_.filePath(QStringLiteral("convertie.mdb")); }

 private:
  void LireNumeros(SourceAncienne &source);

  QTemporaryDir dossier_;
  QString constat_;
  ClesAlertes cles_;
  QHash<qsizetype, Correspondant> ecrits_;  ///< those with letters, by the rank of the row
  bool jet_ = false;
};

/// Its correspondents, each with its mark of protection; `chemin` is the file they come from. One
/// without a name is known by what else the row holds, the first line of the address before all,
/// and refused where that is nothing. Throws `ErreurBase`.
std::unique_ptr<SourcePersonnes> OuvrirBase(std::shared_ptr<const AncienneBase> ancienne,
                                            const QString &chemin, const UsagesReprise &usages);
