#pragma once
// What the toolkit lacks to bring a file to the disk and keep it there. Each system has its own.
// Where one of these fails, the system's last error tells why.

#include <QString>

/// Waits until what was written into the open file stands on the disk. False when it does not.
bool SynchroniserFichier(int descripteur);

/// The same for the names that the folder holds. True too where its file system has no such thing.
bool SynchroniserDossier(const QString &dossier);

/// Renames within a folder and replaces what bears the new name, in one step. On false both files
/// are as they were.
bool RenommerEnRemplacant(const QString &ancien, const QString &nouveau);

/// Gives a file the owner and the group of another, each as far as this user may.
void RendreAuProprietaire(const QString &fichier, const QString &modele);

enum class Renommage { Fait, NomPris, AutreDisque, Echoue };

/// Renames within a file system, in one step, and replaces nothing. Unless it is done, the file
/// stands under its old name.
Renommage RenommerSansRemplacer(const QString &ancien, const QString &nouveau);
