#pragma once
// The running programs of one user, and what they ask of each other.

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>

class Voisinage {
 public:
  virtual ~Voisinage() = default;

  /// Takes a name for this run; what another program asks of it comes to `recevoir`, in the loop of
  /// events, as long as `contexte` lives. False when another run of this user has the name.
  virtual bool Prendre(const QString &nom, QObject *contexte,
                       const std::function<void(const QStringList &)> &recevoir) = 0;

  /// Asks the run that has a name; false when there is none, or when it does not take the question
  /// within a few seconds.
  virtual bool Demander(const QString &nom, const QStringList &mots) = 0;
};
