#pragma once

#include <QString>

/// Stored form of a telephone number: digits in pairs joined by `separateur`, a lone digit in
/// front. `ancien`, the separator that the text may bear, is taken out before as a whole where it
/// has several signs; one of a single sign goes like any other sign. Parentheses and "/" always go;
/// any other sign that stands directly behind a removed one stays. Never fails; an empty text stays
/// empty.
QString FormatTelephone(const QString &texte, const QString &separateur, const QString &ancien);

/// The same for a text that may bear the separator in force.
inline QString FormatTelephone(const QString &texte, const QString &separateur) {
  return FormatTelephone(texte, separateur, separateur);
}
