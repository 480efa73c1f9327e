#pragma once

#include <array>

/// An envelope format; lengths in millimetres, 0 where the user gives them.
struct FormatEnveloppe {
  const char16_t *libelle;
  float hauteur;
  float largeur;
};

/// In the order of the list; the blanks inside the texts align it.
inline constexpr std::array<FormatEnveloppe, 9> kFormatsEnveloppe{{
    {u"C4      (229 x 324 mm)", 229, 324},
    {u"C5      (162 x 229 mm)", 162, 229},
    {u"C6      (114 x 162 mm)", 114, 162},
    {u"C65     (114 x 229 mm)", 114, 229},
    {u"DL      (110 x 220 mm)", 110, 220},
    {u"E4      (220 x 310 mm)", 220, 310},
    {u"E5      (155 x 220 mm)", 155, 220},
    {u"E6      (110 x 155 mm)", 110, 155},
    {u"Taille personnalisée", 0, 0},
}};

inline constexpr int kFormatDL = 4;
inline constexpr int kFormatPersonnalise = 8;
