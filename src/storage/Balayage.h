#pragma once

#include "storage/Dossiers.h"

class QDateTime;
class QString;

/// Takes away what runs that died have left, where it is surely ours and older than a day: files
/// that were not whole yet, private copies of the base, super-journals of the engine that no
/// journal needs any more; and, of more than 30 days ago, workbooks that were handed over and runs
/// of envelopes that came to no end. Never fails.
void BalayerRestes(const Dossiers &dossiers, const QDateTime &maintenant);

/// The same of one folder: the files that were not whole yet. Never fails.
void BalayerProvisoires(const QString &dossier, const QDateTime &maintenant);
