#pragma once

#include <Qt>

/// The alignment of a text block as the settings count it: 0 left, 1 right, 2 centred.
inline Qt::Alignment AlignementTexte(int alignement) {
  return alignement == 1 ? Qt::AlignRight : alignement == 2 ? Qt::AlignHCenter : Qt::AlignLeft;
}
