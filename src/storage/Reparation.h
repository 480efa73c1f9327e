#pragma once
// The repair of a database file: whatever can be read goes into a new one, which takes its place.

#include "storage/Avance.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <chrono>
#include <optional>

struct BilanTable {
  QString nom;                ///< for the user
  qsizetype gardees = 0;      ///< rows in the new file
  qsizetype incompletes = 0;  ///< of these, those that lack a part
  qsizetype perdues = 0;      ///< at most
  bool sansBorne = false;     ///< nobody can tell how many more there were

  bool Entiere() const { return incompletes == 0 && perdues == 0 && !sansBorne; }
};

struct BilanReparation {
  QString ancienne;             ///< where the file as it was lies now
  bool endommagee = false;      ///< the engine could not read all of it
  qint64 avant = 0, apres = 0;  ///< sizes in bytes
  bool renommes = false;        ///< events had lost their type or person: see `PhraseBilan`
  QList<BilanTable> tables;     ///< in the order of the format

  /// Whether every row was kept whole.
  bool Entier() const;
};

/// The report for the user, lines with their ends.
QString TexteBilan(const BilanReparation &bilan);
/// Its parts: what has become of the whole and how large it is now, each a sentence, and of a table
/// the name and how many rows were kept, lack a part and are lost.
QString PhraseBilan(const BilanReparation &bilan);
QString TailleBilan(const BilanReparation &bilan);
QStringList CellulesBilan(const BilanTable &table);

/// Repairs and compacts a database. What a killed program left half written is taken back first, as
/// every opening does; from then on the file is this program's alone, waited for as long as
/// `attente`, and only read. It is copied aside with the date. A whole one gives its rows through
/// the engine, a damaged one by the form of its pages. The new file, checked, takes the place in
/// one step: a kill at any moment leaves the old one or the new one, whole.
///
/// Nothing when it was stopped. Throws `ErreurBase` or `ErreurFichier`, also for a file that is no
/// database of ours, is one of a newer version, or of which nothing can be read. The file is then
/// as it was, and no copy is left.
std::optional<BilanReparation> ReparerBase(const QString &chemin, const QDateTime &maintenant,
                                           std::chrono::milliseconds attente, const Avance &avance);
