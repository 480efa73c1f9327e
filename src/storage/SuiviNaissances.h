#pragma once

#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QList>

#include <optional>

/// Which records may have another name, birth date or protection than when everything was read:
/// the engine notes them for its connection, beside the file. Every verb throws `ErreurBase`.
class SuiviNaissances {
 public:
  explicit SuiviNaissances(Base &base) : base_(base) {}

  /// Before everything is read.
  void Commencer();

  /// Those written, added or deleted since `Commencer`; nothing where that is not known, since
  /// another connection has written, or where they are many.
  std::optional<QList<Cle>> Touchees();

 private:
  Base &base_;
  qint64 changements_ = 0;
};
