#pragma once
// Short notes that the desktop shows for a moment, beside its own.

#include <QObject>
#include <QString>

#include <functional>

class Notifications {
 public:
  virtual ~Notifications() = default;

  /// Shows a text as it stands; a click on it runs `cliquee`, as long as `contexte` lives. Where
  /// the session shows none nothing happens.
  virtual void Montrer(const QString &titre, const QString &texte, QObject *contexte,
                       const std::function<void()> &cliquee) = 0;
};
