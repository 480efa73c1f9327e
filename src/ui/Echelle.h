#pragma once
// The size of the program on the screen, in twips, on which 9000 is the size as designed.

#include <QtGlobal>

#include <algorithm>

inline constexpr qint32 kTailleDessin = 9000;
inline constexpr qint32 kTailleMin = 6000, kTailleMax = 12000;

/// What everything is multiplied by. A size that cannot be chosen counts as the nearest one that
/// can.
inline double Echelle(qint32 taille) {
  return static_cast<double>(std::clamp(taille, kTailleMin, kTailleMax)) / kTailleDessin;
}

/// The scaled size of a font. Scaling makes none smaller than can be read.
inline double PointsAEchelle(double points, double echelle) {
  constexpr double kLisible = 7;
  return std::max(points * echelle, std::min(points, kLisible));
}
