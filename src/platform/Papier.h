#pragma once
// How a page lies on the sheet that goes through a printer, and what a printer does to it on the
// way. A page is what is read, upright; the sheet is what is fed, its top edge first.

#include "platform/Millimetres.h"

#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

/// A place, counted from a top left corner to the right and down.
struct Point {
  Millimetres x, y;

  friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
  friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
  friend bool operator==(const Point &, const Point &) = default;
};

struct Taille {
  Millimetres largeur, hauteur;

  Point Milieu() const { return {largeur / 2, hauteur / 2}; }
  friend bool operator==(const Taille &, const Taille &) = default;
};

/// What cannot be printed on, along the edges.
struct Marges {
  Millimetres gauche, haut, droite, bas;
};

enum class Orientation { Portrait = 1, Paysage = 2 };

/// How a page is turned to lie on its sheet, by a quarter at most: clockwise (`Droite`), so that
/// its left end is fed first, or the other way round.
enum class Tour { Aucun, Droite, Gauche };

/// A page, and how it lies on its sheet.
struct Papier {
  Taille page{Millimetres(210), Millimetres(297)};
  Tour tour = Tour::Aucun;
  bool enveloppe = false;  ///< the envelope itself is the paper

  /// The A4 sheet, which is fed upright: a landscape page lies on it with its top at the right
  /// edge.
  static Papier A4(Orientation orientation);
  Taille Feuille() const;
  /// The margins of the page on a sheet with these.
  Marges SurPage(const Marges &feuille) const;
  /// As words for the user, the same for the same paper only: "A4 paysage".
  QString Nom() const;
};

/// Which of the sizes that a printer has is meant: the nearest one within a millimetre in both
/// directions, the first of several; nothing without one.
std::optional<std::size_t> PlusProche(const std::vector<Taille> &tailles, const Taille &voulue);

/// What a printer does to each page of one kind, so that it can be made good: what is sent to a
/// place comes out elsewhere. Places on the page.
struct Correction {
  double echelleX = 1, echelleY = 1;  ///< lengths come out so many times as long
  Point decalage{};                   ///< where the page's corner comes out

  /// Where it comes out.
  Point Arrivee(Point envoye) const;
  /// Where it has to be sent to come out there.
  Point Envoi(Point voulu) const;

  friend bool operator==(const Correction &, const Correction &) = default;
};

/// What is measured on a calibration page.
struct MesureEtalon {
  Point croix;                 ///< place of the cross
  Millimetres regleX, regleY;  ///< lengths of the two rulers

  friend bool operator==(const MesureEtalon &, const MesureEtalon &) = default;
};

/// The correction that follows from a page which has come out as `mesuree` where it was printed
/// with `enVigueur`, and should be as `voulue`.
Correction Corriger(const Correction &enVigueur, const MesureEtalon &voulue,
                    const MesureEtalon &mesuree);

/// Whether a printer may be so far off. What is further is mistyped: 40 mm, or a tenth of a length.
bool EstPlausible(const MesureEtalon &voulue, const MesureEtalon &mesuree);

/// The one way from a page to its sheet: corrected, then turned. Places on the page are counted
/// from `origine`.
class Pose {
 public:
  Pose(const Papier &papier, Point origine, const Correction &correction)
      : papier_(papier), origine_(origine), correction_(correction) {}

  /// The place on the sheet that has to be sent.
  Point operator()(Point place) const;

 private:
  Papier papier_;
  Point origine_;
  Correction correction_;
};
