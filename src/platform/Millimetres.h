#pragma once

#ifndef Q_MOC_RUN  // its parser stumbles over the concepts of that header
#include <compare>
#endif

/// A length on paper. The unit is carried by the type, so that a place on the envelope cannot be
/// mixed up with pixels, points or twips.
struct Millimetres {
  double valeur = 0;

  constexpr Millimetres() = default;
  constexpr explicit Millimetres(double v) : valeur(v) {}

  friend constexpr Millimetres operator+(Millimetres a, Millimetres b) {
    return Millimetres(a.valeur + b.valeur);
  }
  friend constexpr Millimetres operator-(Millimetres a, Millimetres b) {
    return Millimetres(a.valeur - b.valeur);
  }
  friend constexpr Millimetres operator-(Millimetres a) { return Millimetres(-a.valeur); }
  friend constexpr Millimetres operator*(Millimetres a, double f) {
    return Millimetres(a.valeur * f);
  }
  friend constexpr Millimetres operator/(Millimetres a, double f) {
    return Millimetres(a.valeur / f);
  }
  /// How often the one goes into the other.
  friend constexpr double operator/(Millimetres a, Millimetres b) { return a.valeur / b.valeur; }
  constexpr Millimetres &operator+=(Millimetres b) {
    valeur += b.valeur;
    return *this;
  }
  friend constexpr auto operator<=>(Millimetres, Millimetres) = default;
};

inline constexpr Millimetres kPouce(25.4);
inline constexpr Millimetres kPoint = kPouce / 72;
