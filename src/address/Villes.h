#pragma once
// The towns that are remembered with their postal codes, one row for each code of a town.

#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QList>
#include <QStringList>

/// The towns in the order of names, each of those with several codes once, by its first row. Throws
/// `ErreurBase`.
QList<VilleCode> VillesProposees(Base &base);

/// Whether the row's town has others: its links are a list of keys.
bool PlusieursCodes(const VilleCode &ville);

/// The codes of the rows of such a town; rows that have gone are left out. Throws `ErreurBase`.
QStringList CodesDe(Base &base, const VilleCode &ville);

/// The towns of a code, for a field that is filled from it: the remembered ones first, in their
/// spelling, then those of the delivered list that are none of them. A source that cannot be read
/// or is missing counts as empty.
QStringList VillesDuCode(Base &base, const QString &appPath, const QString &code);

/// The same of towns that have been read. Two names are one town where they differ in case,
/// accents, hyphens and apostrophes, or in "Saint" written "ST".
QStringList ReunirVilles(const QStringList &retenues, const QStringList &livrees);

/// What is missing of the first town that begins as typed, whatever case and accents; empty where
/// none does. It goes on in small letters behind some where the town stands in capitals.
QString FinDeVille(const QString &tape, const QStringList &villes);
