#include "directory/Age.h"

#include "platform/Saisie.h"

using namespace Qt::StringLiterals;

QString TexteAge(const QString &ddn, QDate aujourdhui) {
  const QDate naissance = DateSaisie(ddn);
  if (!naissance.isValid()) return u""_s;
  const int mois =
      (aujourdhui.year() - naissance.year()) * 12 + aujourdhui.month() - naissance.month();
  return mois >= 12 ? QString::number(mois / 12) + u" ans"_s : QString::number(mois) + u" mois"_s;
}
