#pragma once

#include "storage/MiseAJour.h"
#include "storage/SourceJet.h"

#include <QString>

class Base;

/// Puts the database of one file into the place of another, whole, whoever works on either at this
/// time. A destination that others may have open takes the rows of the source in one transaction,
/// and they see them; one that is missing or is no database of ours is replaced by a new file. The
/// source is only read, also while others write to it. A file onto itself changes nothing.
///
/// Throws `ErreurBase` or `ErreurFichier`, also for a source that is no database of ours, for a
/// destination that is one of a newer version, and when another program keeps either for itself;
/// the destination is then as it was.
void TransfererBase(const QString &source, const QString &destination);

/// The same of an older database in the Jet format, read before: its rows become what an upgrade
/// makes of them.
void TransfererBaseJet(SourceJet &source, const QString &destination, const ReglesCopie &regles);

/// Gives `base` the rows of another database of the same schema, and nothing else, in one
/// transaction. False when the schemas differ; nothing has changed then. Throws `ErreurBase`.
bool PrendreLignes(Base &base, const QString &source);
