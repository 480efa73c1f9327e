#pragma once

#include "ui/Theme.h"

/// The colour of a telephone number: red when it is on the red list, dark blue otherwise. On a dark
/// ground they would not be read, and lighter ones of the same hue stand for them.
inline QColor CouleurNumero(bool listeRouge, const QPalette &palette) {
  const bool sombre = EstSombre(palette);
  if (listeRouge) return sombre ? QColor(255, 140, 140) : QColor(192, 0, 0);
  return sombre ? QColor(150, 180, 255) : QColor(0, 0, 128);
}
