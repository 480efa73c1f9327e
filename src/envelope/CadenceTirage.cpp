#include "envelope/CadenceTirage.h"

#include <cmath>
#include <numeric>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString TexteDuree(std::chrono::milliseconds duree) {
  if (duree < 1min) return u"moins d'une minute"_s;
  constexpr double kPrudence = 0.25;  // who waits is not to be told too little
  const auto minutes =
      std::lround(std::chrono::duration<double, std::ratio<60>>(duree).count() + kPrudence);
  if (minutes < 60)
    return minutes == 1 ? u"environ une minute"_s : u"environ %1 minutes"_s.arg(minutes);
  const auto dizaines = std::lround(static_cast<double>(minutes) / 10);
  return u"environ %1 h %2"_s.arg(dizaines / 6).arg(dizaines % 6 * 10, 2, 10, QChar(u'0'));
}

}  // namespace

void CadenceTirage::Noter(std::chrono::milliseconds duree) {
  constexpr std::size_t kRetenues = 10;
  dernieres_.push_back(duree);
  if (dernieres_.size() > kRetenues) dernieres_.pop_front();
}

std::optional<std::chrono::milliseconds> CadenceTirage::Pour(qsizetype nombre) const {
  constexpr std::size_t kAssez = 3;
  if (dernieres_.size() < kAssez) return std::nullopt;
  const auto somme = std::accumulate(dernieres_.cbegin(), dernieres_.cend(), 0ms);
  return somme * nombre / static_cast<qsizetype>(dernieres_.size());
}

QString TexteReste(qsizetype restantes, std::optional<std::chrono::milliseconds> duree) {
  const QString nombre = restantes == 0   ? u"C'est la dernière"_s
                         : restantes == 1 ? u"Il en reste une après celle-ci"_s
                                          : u"Il en reste %1 après celle-ci"_s.arg(restantes);
  return duree && restantes > 0 ? nombre + u" : "_s + TexteDuree(*duree) + u"."_s : nombre + u'.';
}
