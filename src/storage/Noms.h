#pragma once
// When two names, of people or of towns, are the same: upper and lower case count alike. What is no
// name, and in which order names stand.

#include <QCollator>
#include <QString>

#include <algorithm>

/// A name in capitals, character by character, so that it keeps its length and "Weiß" does not
/// become the name of "Weiss". What a name is known by.
inline QString EnCapitales(QString nom) {
  for (QChar &c : nom) c = c.toUpper();
  return nom;
}

inline bool MemeNom(const QString &un, const QString &autre) {
  return EnCapitales(un) == EnCapitales(autre);
}

/// Whether nothing in a text can be seen: it is empty, or all blanks, no-break ones and those
/// without a width among them.
inline bool EstSansNom(const QString &texte) {
  return std::ranges::all_of(
      texte, [](QChar c) { return c.isSpace() || c.category() == QChar::Other_Format; });
}

/// The order of all lists of names: the French one, in which an accented letter stands beside the
/// plain one, upper and lower case alike.
inline QCollator OrdreDesNoms() {
  QCollator ordre(QLocale(QLocale::French, QLocale::France));
  ordre.setCaseSensitivity(Qt::CaseInsensitive);
  return ordre;
}
