#pragma once
// The colours of a gradient, line by line.

#include "platform/Boites.h"

#include <vector>

/// A range of lines of a surface: from line `debut` on to its extent less `marge`.
struct EtendueDegrade {
  int debut = 0;
  int marge = 0;
};

/// The colours of the lines of the range, the first and the last line included. The channels go by
/// equal steps, of which the first line has taken one and the last one all: it has the colour
/// `fin`. Their integer parts are what is drawn. Empty where the surface ends before the range
/// begins.
std::vector<Boites::Couleur> PeindreDegrade(const Boites::Couleur &depart,
                                            const Boites::Couleur &fin, EtendueDegrade etendue,
                                            int lignes);
