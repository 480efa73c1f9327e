#pragma once
// What the toolkit lacks to bring a file to the disk and keep it there. Each system has its own.

#include <QString>

/// Waits until what was written into the open file stands on the disk. False when it does not.
bool SynchroniserFichier(int descripteur);

/// The same for the names that the folder holds. Not every file system can, so nothing is told.
void SynchroniserDossier(const QString &dossier);

/// Renames within a folder and replaces what bears the new name, in one step. On false both files
/// are as they were, and the system's last error tells why.
bool RenommerEnRemplacant(const QString &ancien, const QString &nouveau);
