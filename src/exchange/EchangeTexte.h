#pragma once
// The exchange file, which carries correspondents from one directory into another: 24 lines a
// record in the Western European code page, ended by CR LF. Keys and notes stay behind.

#include "storage/Avance.h"
#include "storage/Base.h"

#include <QByteArray>

#include <optional>

/// The correspondents in the order of the table, as the content of the file. Nothing when it was
/// stopped. A value with a line break is written as it is, and shifts its record. Throws
/// `ErreurBase`.
std::optional<QByteArray> ExporterVelmiras(Base &base, const Avance &avance);

struct BilanImport {
  qsizetype traites = 0;  ///< records of the file that were added or merged
  bool arrete = false;    ///< records were left
};

/// Merges the content of a file into the table. The name is what a record is known by, in upper or
/// lower case, the first row where several bear it. One that is known has its empty fields filled
/// and nothing changed; one that is not is added. Lines before a record are skipped; one that the
/// end cuts short leaves its other fields unset.
///
/// Records are written in blocks; those before the one where the import stops or fails stay. Throws
/// `ErreurFichier` for a value that its field cannot take, and `ErreurBase`.
BilanImport ImporterVelmiras(Base &base, const QByteArray &octets, const Avance &avance);
