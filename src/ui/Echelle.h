#pragma once
// The size of the program on the screen, in twips, on which 9000 is the size as designed.

#include <QFont>
#include <QtGlobal>

#include <algorithm>

inline constexpr qint32 kTailleDessin = 9000;
inline constexpr qint32 kTailleMin = 6000, kTailleMax = 12000;

/// What everything is multiplied by. A size that cannot be chosen counts as the nearest one that
/// can.
inline double Echelle(qint32 taille) {
  return static_cast<double>(std::clamp(taille, kTailleMin, kTailleMax)) / kTailleDessin;
}

/// How much larger than as designed, for which ten points are, the font of a desktop is; 1 for a
/// smaller one. `police` is the program's, already scaled.
inline double Grossissement(const QFont &police, double echelle) {
  constexpr double kDessin = 10;
  return std::max(1.0, police.pointSizeF() / (kDessin * echelle));
}

/// The scaled size of a font. Scaling makes none smaller than can be read.
inline double PointsAEchelle(double points, double echelle) {
  constexpr double kLisible = 7;
  return std::max(points * echelle, std::min(points, kLisible));
}
