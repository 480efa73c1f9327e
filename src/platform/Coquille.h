#pragma once
// What the desktop opens for us.

#include <QString>

class Coquille {
 public:
  virtual ~Coquille() = default;

  /// Opens a document (by its path) with the desktop's default program. A failure is silent.
  virtual void Ouvrir(const QString &document) = 0;
};
