#pragma once
// The birthdays that come next in the whole directory.

#include "calendar/Anniversaires.h"
#include "storage/Lignes.h"

#include <QList>

#include <vector>

class Base;

struct AnniversaireProche {
  Cle index = 0;
  QString nom;
  Anniversaire anniversaire;
};
using Proches = std::vector<AnniversaireProche>;

/// The birthdays of the next thirty days, the soonest first, of those whom `utilisateur` may see;
/// `kLimiteProches` at most. The engine looks through the table, and gives few rows of it. Throws
/// `ErreurBase`.
Proches AnniversairesProches(Base &base, QDate aujourdhui, const QString &utilisateur);

/// The same where only these records have changed since `avant`, on the same day: no other is read.
/// Not for as many as the limit, behind which others may wait. Throws `ErreurBase`.
Proches AnniversairesProches(Base &base, QDate aujourdhui, const QString &utilisateur,
                             const Proches &avant, const QList<Cle> &changees);

inline constexpr std::size_t kLimiteProches = 200;  ///< more are not looked through
