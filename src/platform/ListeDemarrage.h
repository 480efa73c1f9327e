#pragma once

#include <QString>

/// The system's list of programs that are started when the user logs on. Failures are silent.
class ListeDemarrage {
 public:
  virtual ~ListeDemarrage() = default;

  /// Puts an entry, or replaces the one of this name: a program, by its path without the platform's
  /// suffix, and one argument.
  virtual void Ajouter(const QString &nom, const QString &programme, const QString &argument) = 0;

  /// Takes an entry away, if there is one.
  virtual void Retirer(const QString &nom) = 0;
};
