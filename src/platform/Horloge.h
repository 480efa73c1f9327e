#pragma once
// The clock of the run: what day it is, pauses, and what is to happen later.

#include <QDateTime>
#include <QObject>

#include <chrono>
#include <functional>

class Horloge {
 public:
  virtual ~Horloge() = default;

  /// Local date and time of the user.
  virtual QDateTime Maintenant() const = 0;

  /// Waits. The windows go on painting, but take no input from the user meanwhile.
  virtual void Pause(std::chrono::milliseconds duree) = 0;

  /// Waits while the windows go on working, until `duree` has passed or `arret` says true; it is
  /// asked at least ten times a second.
  virtual void Attendre(std::chrono::milliseconds duree, const std::function<bool()> &arret) = 0;

  /// The same without a limit of time; the end of the program ends it too.
  virtual void AttendreQue(const std::function<bool()> &arret) = 0;

  /// Runs `action` once, `delai` from now, unless `contexte` has been destroyed by then.
  virtual void Apres(std::chrono::milliseconds delai, QObject *contexte,
                     std::function<void()> action) = 0;
};
