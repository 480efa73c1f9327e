#pragma once

#include "platform/Boites.h"

/// The records of text files quote their texts, so that no text of theirs may hold the quotation
/// mark. Whether this one does; if so the user is told.
inline bool RefuserGuillemet(Boites &boites, const QString &texte) {
  if (!texte.contains(u'"')) return false;
  boites.Information(QStringLiteral(" Le caractère \" est interdit !"));
  return true;
}
