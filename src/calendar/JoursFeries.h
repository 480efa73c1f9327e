#pragma once
// The French public holidays of a year.

#include <QDate>
#include <QList>
#include <QString>

struct JourFerie {
  QDate date;
  QString nom;
  bool fixe = false;  ///< the same date each year, so that its weekday is worth telling
};

/// Easter Sunday by the Gregorian calendar; no date for a year before 1.
QDate Paques(int annee);

/// The 13 holidays in their fixed order; none for a year before 1.
QList<JourFerie> JoursFeries(int annee);
