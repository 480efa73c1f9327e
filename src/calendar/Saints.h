#pragma once
// The file of name days, one line a day: a delimiter, day and month of two digits each, three
// fillers, the names from the ninth character on, a delimiter. Lines are ended by CR LF or LF.

#include <QByteArray>
#include <QDate>
#include <QList>
#include <QString>

#include <optional>

struct LigneSaints {
  QString jour, mois;   ///< as they stand in the line
  QString noms;         ///< prefixes and separators included
  bool entiere = true;  ///< long enough to hold names
};

/// The lines of the application folder's `Saints.txt`; nothing when there is no such file.
/// Throws `ErreurFichier` when it is there and cannot be read.
std::optional<QList<LigneSaints>> ChargerSaints(const QString &appPath);

/// All lines in file order. Never fails: a line that is too short has the parts that it has.
QList<LigneSaints> LireSaints(const QByteArray &fichier);

/// The first line of a day, given as day and month of two digits each.
std::optional<LigneSaints> LigneDuJour(const QList<LigneSaints> &saints, const QString &jjmm);

/// The names of a day, as they stand in the file; empty when the file has no such day.
QString SaintsDuJour(const QList<LigneSaints> &saints, QDate jour);
