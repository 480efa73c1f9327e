#pragma once
// The exchange file, which carries correspondents from one directory into another: 24 lines a
// record in the Western European code page, ended by CR LF. Keys and notes stay behind.

#include "storage/Avance.h"
#include "storage/Base.h"

#include <QByteArray>
#include <QStringList>

#include <optional>

struct Exportation {
  QByteArray octets;        ///< the content of the file
  qsizetype coupees = 0;    ///< values of several lines, which have become one
  qsizetype remplaces = 0;  ///< characters that the code page lacks, which have become "?"
};

/// The correspondents in the order of the table. Nothing when it was stopped. Throws `ErreurBase`.
std::optional<Exportation> ExporterVelmiras(Base &base, const Avance &avance);

struct BilanImport {
  qsizetype traites = 0;         ///< records of the file that were added or merged
  qsizetype ajoutes = 0;         ///< of them, who was not known
  qsizetype completes = 0;       ///< of them, whose empty fields were filled
  bool arrete = false;           ///< records were left
  std::optional<QString> coupe;  ///< how the name begins of the record that the end cuts off
  QStringList douteux;           ///< how names begin that were added with a doubtful "?"
};

/// Merges the content of a file into the table. The name is what a record is known by, in upper or
/// lower case, the first row where several bear it; one that an export has changed is known by what
/// it has made of it, where that leaves no doubt. A record that is known has its empty fields
/// filled and nothing changed; one that is not is added. Lines before a record are skipped; one
/// that the end cuts off is left out.
///
/// Records are written in blocks; those before the one where the import stops or fails stay. Throws
/// `ErreurFichier` for a value that its field cannot take, and `ErreurBase`.
BilanImport ImporterVelmiras(Base &base, const QByteArray &octets, const Avance &avance);
