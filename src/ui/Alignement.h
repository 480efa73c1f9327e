#pragma once

#include "storage/Reglages.h"

#include <Qt>

/// The alignment of a text block as the toolkit knows it; one that is none of the three is left.
inline Qt::Alignment AlignementTexte(Alignement alignement) {
  return alignement == Alignement::Droite   ? Qt::AlignRight
         : alignement == Alignement::Centre ? Qt::AlignHCenter
                                            : Qt::AlignLeft;
}
