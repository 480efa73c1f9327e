#include "envelope/Raccourci.h"

using namespace Qt::StringLiterals;

QString LibelleRaccourci(int raccourci) {
  constexpr int kF5 = 116, kF12 = 123, kEntree = 13;  // virtual key codes
  if (raccourci == kEntree) return u"8ENTR"_s;
  if (raccourci < kF5 || raccourci > kF12) return u""_s;
  const int place = raccourci - kF5;
  return QString::number(place) + u'F' + QString::number(place + 5);
}
