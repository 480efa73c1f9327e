#pragma once
// Names and lines that a box tells one by one.

#include <QStringList>

/// The first ones, and behind them how many more there are: a box has to stay on the screen.
inline QStringList Abreger(QStringList lignes) {
  constexpr qsizetype kMontrees = 10;
  const qsizetype reste = lignes.size() - kMontrees;
  if (reste <= 0) return lignes;
  lignes.resize(kMontrees);
  lignes.append(QStringLiteral("... et %1 autre(s)").arg(reste));
  return lignes;
}
