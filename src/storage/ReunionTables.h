#pragma once
// The smaller tables of one database join those of another.

#include "storage/Base.h"
#include "storage/Lignes.h"
#include "storage/SourceAncienne.h"

#include <QHash>
#include <QtGlobal>

/// What a database has been given by another one.
struct Reunion {
  qsizetype villes = 0, expediteurs = 0, types = 0, personnes = 0, evenements = 0;
  qsizetype laisses = 0;  ///< events without a person or a type in force

  qsizetype Ajoutees() const { return villes + expediteurs + types + personnes + evenements; }
  Reunion &operator+=(const Reunion &autre);
};

/// The keys of people and kinds of event as the events of a database name them, and those that they
/// have: a conversion gives keys anew and leaves the events as they are.
struct ClesAlertes {
  QHash<Cle, Cle> personnes, types;
};

/// Of a database whose rows are converted.
ClesAlertes LireClesAlertes(SourceAncienne &source);

/// Adds the towns, senders, kinds of event, people and events of `source` that `cible` does not
/// have yet: the same town and code, the same text of a sender or a kind, the same name and birth
/// date, the same day of one person, as `cles` tells these. What was deleted there stays away; what
/// was deleted here and is in force there comes back. No sender becomes the default one. Stands in
/// the transaction of `cible`. Throws `ErreurBase`.
Reunion ReunirTables(Base &source, const ClesAlertes &cles, Base &cible);
