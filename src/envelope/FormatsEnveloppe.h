#pragma once

#include "platform/Millimetres.h"

#include <array>

/// The format DL, on which the places of the zones are defined.
inline constexpr Millimetres kLongueurDL(220), kHauteurDL(110);

/// An envelope format; lengths are 0 where the user gives them.
struct FormatEnveloppe {
  const char16_t *libelle;
  Millimetres hauteur, largeur;
};

/// In the order of the list; the blanks inside the texts align it.
inline constexpr std::array<FormatEnveloppe, 9> kFormatsEnveloppe{{
    {u"C4      (229 x 324 mm)", Millimetres(229), Millimetres(324)},
    {u"C5      (162 x 229 mm)", Millimetres(162), Millimetres(229)},
    {u"C6      (114 x 162 mm)", Millimetres(114), Millimetres(162)},
    {u"C65     (114 x 229 mm)", Millimetres(114), Millimetres(229)},
    {u"DL      (110 x 220 mm)", kHauteurDL, kLongueurDL},
    {u"E4      (220 x 310 mm)", Millimetres(220), Millimetres(310)},
    {u"E5      (155 x 220 mm)", Millimetres(155), Millimetres(220)},
    {u"E6      (110 x 155 mm)", Millimetres(110), Millimetres(155)},
    {u"Taille personnalisée", Millimetres(0), Millimetres(0)},
}};

inline constexpr int kFormatDL = 4;
inline constexpr int kFormatPersonnalise = 8;
