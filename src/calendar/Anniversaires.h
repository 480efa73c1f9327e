#pragma once
// When a birthday comes back.

#include <QDate>
#include <QLocale>
#include <QString>

#include <optional>

/// Day and month of a date in a year, 29/02 as 28/02 in a year without that day; none of none.
QDate DansLAnnee(QDate date, int annee);

struct Anniversaire {
  QDate jour;
  int dans = 0;  ///< days from today; 0 on the day itself
  int age = 0;   ///< what is reached on that day, 1 at least
};

/// The next birthday from today on, of a birth date as it is typed; nothing where that is no date
/// or lies ahead, and on the day of the birth.
std::optional<Anniversaire> ProchainAnniversaire(const QString &ddn, QDate aujourdhui);

/// "1er octobre", "24 septembre".
QString JourEnLettres(QDate jour, const QLocale &langue);

/// "49 ans le 24 septembre", with the days to go where they are few.
QString TexteAVenir(const Anniversaire &anniversaire, const QLocale &langue);

/// "ven. 04/12 · Delmas Élodie · 48 ans", the age where it may be told.
QString LigneAnniversaire(const Anniversaire &anniversaire, const QString &nom, bool age,
                          const QLocale &langue);
