#pragma once
// Names and lines that a box tells one by one, and how many of a thing there are.

#include <QString>
#include <QStringList>

/// "1 fiche", "2 fiches".
inline QString Compter(qsizetype nombre, const QString &un, const QString &plusieurs) {
  return QString::number(nombre) + u' ' + (nombre > 1 ? plusieurs : un);
}

/// The first ones, and behind them how many more there are: a box has to stay on the screen.
inline QStringList Abreger(QStringList lignes, qsizetype montrees = 10) {
  const qsizetype reste = lignes.size() - montrees;
  if (reste <= 0) return lignes;
  lignes.resize(montrees);
  lignes.append((reste > 1 ? QStringLiteral("... et %1 autres") : QStringLiteral("... et %1 autre"))
                    .arg(reste));
  return lignes;
}
