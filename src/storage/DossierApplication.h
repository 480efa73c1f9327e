#pragma once

#include "storage/Dossiers.h"

#include <QString>

/// Finds the application folder, and fills it where that is due.
///
/// A portable copy, told by the file `Velmira.portable` beside the executable, is its own
/// application folder. Otherwise it is `dossierUtilisateur`, which is filled once from
/// `dossierInstalle`. The empty database is laid there again when the installed one has a higher
/// schema version than the last one laid, since its appearance is what starts an upgrade. The
/// folder `guide` follows the installed one, told apart by its `edition.txt`. Throws
/// `ErreurFichier`; not for the guide.
QString TrouverAppPath(const QString &dossierExecutable, const QString &dossierInstalle,
                       const QString &dossierUtilisateur);

/// At each start: makes the folder of the photos and takes away what older versions have left
/// there. Never fails.
void EntretenirDossier(const Dossiers &dossiers);
