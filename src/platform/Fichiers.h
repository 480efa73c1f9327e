#pragma once
// Files read and written as a whole. Every file that the program writes goes through here.

#include <QByteArray>
#include <QString>

#include <optional>

/// The whole content, or nothing when it is not a readable file.
std::optional<QByteArray> LireFichier(const QString &chemin);

/// Replaces the file: after a crash there stands either the old content or the new one, on the
/// disk. Throws `ErreurFichier`; the old file is then untouched.
void RemplacerFichier(const QString &chemin, const QByteArray &contenu);

/// Deletes, renames, makes a folder (with those above it). They throw `ErreurFichier`; a rename
/// never replaces a file.
void EffacerFichier(const QString &chemin);
void RenommerFichier(const QString &ancien, const QString &nouveau);
/// Renames within a folder and replaces what bears the new name, in one step. Throws
/// `ErreurFichier`; both files are then as they were.
void RemplacerParRenommage(const QString &ancien, const QString &nouveau);
void CreerDossier(const QString &chemin);
