#pragma once
// An older database as the upgrade reads it: by position, whatever its format and its age.

#include <QString>
#include <QVariant>

#include <optional>

class SourceAncienne {
 public:
  virtual ~SourceAncienne() = default;

  /// Goes in front of the first row of a table. False when the file has no such table. Throws
  /// `ErreurBase`.
  virtual bool Ouvrir(const QString &table) = 0;

  /// Steps to the next row in the order in which the rows were added; false behind the last one.
  /// Throws `ErreurBase` when the rows cannot be walked to their end.
  virtual bool Suivante() = 0;

  /// A field of the row by its ordinal, 0 the key: null, a text or a number; a boolean is a number,
  /// 0 for false. Nothing when the table has no such column or the field cannot be read.
  virtual std::optional<QVariant> Champ(int ordinal) = 0;
};
