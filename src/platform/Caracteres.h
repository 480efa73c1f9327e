#pragma once

#include "platform/Imprimante.h"

#include <QFont>

/// The toolkit's font for one that the user has chosen, in its size in points.
inline QFont Caracteres(const Police &police) {
  QFont font(police.nom);
  font.setPointSizeF(police.points);
  font.setBold(police.gras);
  font.setUnderline(police.souligne);
  return font;
}
