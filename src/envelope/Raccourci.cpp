#include "envelope/Raccourci.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kF5 = 116, kF12 = 123, kEntree = 13;  // virtual key codes
constexpr int kPlaceEntree = 8;

}  // namespace

std::optional<ToucheRaccourci> LibelleRaccourci(int raccourci) {
  if (raccourci == kEntree) return ToucheRaccourci{kPlaceEntree, u"ENTR"_s};
  if (raccourci < kF5 || raccourci > kF12) return std::nullopt;
  const int place = raccourci - kF5;
  return ToucheRaccourci{place, u'F' + QString::number(place + 5)};
}

qint16 CodeRaccourci(int place) {
  return static_cast<qint16>(place == kPlaceEntree ? kEntree : kF5 + place);
}
