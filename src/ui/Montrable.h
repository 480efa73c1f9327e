#pragma once
// What is shown of a text that may be of any length: more than a place can hold is costly to
// measure, and would widen its window.

#include <QString>
#include <QStringList>

/// The beginning of `texte`, at most so many characters long; no character is cut in two.
inline QString Montrable(const QString &texte, qsizetype caracteres) {
  QString debut = texte.left(caracteres);
  const bool coupe = debut.size() < texte.size() && !debut.isEmpty();
  if (coupe && debut.back().isHighSurrogate()) debut.chop(1);
  return debut;
}

/// Its first lines, for a place that holds so many of them, each so many characters long. A longer
/// line stays whole where it leaves the room of others.
inline QStringList LignesMontrables(const QString &texte, qsizetype lignes, qsizetype caracteres) {
  return Montrable(texte, lignes * caracteres).split(u'\n').mid(0, lignes);
}
