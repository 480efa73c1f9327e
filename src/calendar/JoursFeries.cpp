#include "calendar/JoursFeries.h"

using namespace Qt::StringLiterals;

QDate Paques(int annee) {
  if (annee < 1) return {};
  // The anonymous Gregorian computus; the letters are the ones that it is known by.
  const int a = annee % 19;
  const int b = annee / 100, c = annee % 100;
  const int d = b / 4, e = b % 4;
  const int f = (b + 8) / 25;
  const int g = (b - f + 1) / 3;
  const int h = (19 * a + b - d - g + 15) % 30;
  const int i = c / 4, k = c % 4;
  const int l = (32 + 2 * e + 2 * i - h - k) % 7;
  const int m = (a + 11 * h + 22 * l) / 451;
  const int t = h + l - 7 * m + 114;
  return {annee, t / 31, t % 31 + 1};
}

QList<JourFerie> JoursFeries(int annee) {
  const QDate paques = Paques(annee);
  if (!paques.isValid()) return {};
  const auto fixe = [annee](int jour, int mois, const QString &nom) {
    return JourFerie{QDate(annee, mois, jour), nom, true};
  };
  const auto mobile = [paques](int jours, const QString &nom) {
    return JourFerie{paques.addDays(jours), nom, false};
  };
  return {fixe(1, 1, u"Jour de l'an"_s),    mobile(0, u"Pâques"_s),
          mobile(1, u"Lundi de Pâques"_s),  fixe(1, 5, u"Fête du travail"_s),
          fixe(8, 5, u"Victoire 1945"_s),   mobile(39, u"Jeudi de l'Ascencion"_s),
          mobile(49, u"Pentecôte"_s),       mobile(50, u"Lundi de Pentecôte"_s),
          fixe(14, 7, u"Fête nationale"_s), fixe(15, 8, u"Assomption"_s),
          fixe(1, 11, u"Toussaint"_s),      fixe(11, 11, u"Armistice 1918"_s),
          fixe(25, 12, u"Noël"_s)};
}
