#pragma once

#include <QStringList>

/// The fonts of the system.
class Polices {
 public:
  virtual ~Polices() = default;
  /// Family names, sorted.
  virtual QStringList Familles() const = 0;
};
