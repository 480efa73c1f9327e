#pragma once

#include <QString>

/// Whether a user sees a record with this protection mark: none, a mark that ends in "$", or the
/// user's own name. A null mark hides the record from everybody.
inline bool EstVisible(const QString &dataProt, const QString &utilisateur) {
  if (dataProt.isNull()) return false;
  return dataProt.isEmpty() || dataProt.endsWith(u'$') || dataProt == utilisateur;
}
