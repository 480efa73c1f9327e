#pragma once
// What a typed text means as a date, as a number or as a name.

#include <QDate>
#include <QString>

/// Day, month and year with "/", "-" or "." between; a year of two digits means 1930 to 2029.
/// Anything else is no date and gives an invalid one.
QDate DateSaisie(const QString &texte);

/// A date as it is stored, jj/mm/aaaa; empty for one that is none.
QString EcritureDate(QDate date);

/// The text without the blanks at its ends. Only blanks: a tab is a character of a name.
QString SansBlancs(QStringView texte);

/// The number that a text begins with, decimals behind "," or ".", thousands behind blanks, also
/// no-break ones; 0 when it begins with none.
double NombreSaisi(const QString &texte);
