#pragma once

#include <QString>

#include <chrono>
#include <deque>
#include <optional>

/// How fast a run goes, for a word about what is left of it.
class CadenceTirage {
 public:
  /// One more has gone, and took so long, the wait behind it included.
  void Noter(std::chrono::milliseconds duree);

  /// How long so many will take, by the last ten; nothing before three have gone: the first ones
  /// wake the printer up.
  std::optional<std::chrono::milliseconds> Pour(qsizetype nombre) const;

 private:
  std::deque<std::chrono::milliseconds> dernieres_;
};

/// What is left behind the present one, and how long all takes with it, as coarsely as it is known.
QString TexteReste(qsizetype restantes, std::optional<std::chrono::milliseconds> duree);
