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
