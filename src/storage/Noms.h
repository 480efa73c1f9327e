#pragma once
// When two names, of people or of towns, are the same: upper and lower case count alike.

#include <QString>

/// A name in capitals, character by character, so that it keeps its length and "Weiß" does not
/// become the name of "Weiss". What a name is known by.
inline QString EnCapitales(QString nom) {
  for (QChar &c : nom) c = c.toUpper();
  return nom;
}

inline bool MemeNom(const QString &un, const QString &autre) {
  return EnCapitales(un) == EnCapitales(autre);
}
