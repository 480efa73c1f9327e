#pragma once
// The French public holidays of a year.

#include <QDate>
#include <QLocale>
#include <QString>

#include <optional>

/// Easter Sunday by the Gregorian calendar; no date for a year before 1.
QDate Paques(int annee);

/// The 13 holidays in their fixed order, each ended by ";". The fixed ones bear their weekday as
/// `langue` names it. Nothing when `annee` is no whole number, or a year that has no dates.
std::optional<QString> JoursFeries(const QString &annee, const QLocale &langue);
