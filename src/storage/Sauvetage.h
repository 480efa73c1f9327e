#pragma once
// The rows of our tables in a damaged file.

#include "storage/Avance.h"

#include <QByteArray>
#include <QString>
#include <QVariant>

#include <iterator>
#include <map>
#include <optional>
#include <vector>

/// What is left of a table.
struct TableSauvee {
  QString nom;
  std::map<qint64, QVariantList> lignes;  ///< by their keys; the fields by ordinal, 0 the key
  std::vector<QVariantList> sansCle;      ///< rows whose key makes no sense: they get a new one
  qsizetype incompletes = 0;              ///< rows of both that lack a part
  qsizetype perdues = 0;                  ///< at most: the keys that may have stood there
  bool sansBorne = false;                 ///< nobody can tell how many more there were
  qint64 derniereCle = 0;                 ///< that was ever given

  qsizetype Gardees() const { return std::ssize(lignes) + std::ssize(sansCle); }
};

/// What a file is, as far as its first page tells.
struct Identite {
  bool lisible = false;     ///< the page that names the tables makes sense
  bool tables = false;      ///< it names a table of correspondents
  quint32 application = 0;  ///< marks of the header, also where they are damaged
  quint32 version = 0;
};
Identite IdentiteDe(const QByteArray &fichier);

/// Reads the tables along their trees, and pages that no tree leads to any more by what their rows
/// look like. The engine is not asked. In the order of the format; nothing when it was stopped.
std::optional<std::vector<TableSauvee>> SauverTables(QByteArray fichier, const Avance &avance);
