#pragma once
// The images of rows, before and after, that the engine keeps of what a transaction writes. For the
// storage's own .cpp files.

#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

struct sqlite3_session;

/// Follows what this connection writes to the six tables, from its making on. It slows each
/// writing by some microseconds and stands within one transaction. A statement that deletes all
/// rows of a table at once and was prepared before is not seen.
class SuiviImages {
 public:
  explicit SuiviImages(const Base &base);
  ~SuiviImages();
  SuiviImages(const SuiviImages &) = delete;
  SuiviImages &operator=(const SuiviImages &) = delete;

  /// What has been written so far, each row once; empty where nothing has changed. To be asked for
  /// before the transaction ends: the rows are read as they are now. Nothing where the engine could
  /// not follow: what was written is unharmed.
  std::optional<QByteArray> Images();

 private:
  sqlite3_session *suivi_ = nullptr;
};

/// What was not put back, because it is not as it was left.
struct Laissee {
  QString table;       ///< its name in the schema; empty for a file
  QString nom;         ///< what the row or the file is called; empty where it has gone
  QString protection;  ///< `DataProt` of a correspondent
};

/// Writes the rows as they were before, where they still are as these images left them; a row of
/// which another column has been changed keeps that. Gives the others. Stands in the caller's
/// transaction, which is to be given up when this throws `ErreurBase`.
QList<Laissee> Renverser(const Base &base, const QByteArray &images);

/// The keys of correspondents whom these images have added or changed, `plafond` of them at most.
QList<Cle> FichesEcrites(const QByteArray &images, qsizetype plafond);
