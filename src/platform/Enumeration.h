#pragma once
// Names and lines that a box tells one by one.

#include <QStringList>

/// The first ones, and behind them how many more there are: a box has to stay on the screen.
inline QStringList Abreger(QStringList lignes, qsizetype montrees = 10) {
  const qsizetype reste = lignes.size() - montrees;
  if (reste <= 0) return lignes;
  lignes.resize(montrees);
  lignes.append((reste > 1 ? QStringLiteral("... et %1 autres") : QStringLiteral("... et %1 autre"))
                    .arg(reste));
  return lignes;
}
