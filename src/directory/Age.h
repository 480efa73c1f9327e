#pragma once

#include "storage/Reglages.h"

#include <QDate>
#include <QString>

/// "12 ans", or "7 mois" under a year. Months are counted as month boundaries crossed, so that the
/// age rises on the first day of the birth month. Empty when there is no birth date, or none that
/// can be read.
QString TexteAge(const QString &ddn, QDate aujourdhui);

/// Whether the user wants anything of a birth date to be seen.
inline bool NaissanceMontree(AffichageNaissance affichage) {
  return affichage == AffichageNaissance::Date || affichage == AffichageNaissance::Age;
}
