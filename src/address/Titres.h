#pragma once
// The titles of `Civilite.txt`: one a line.

#include <QString>
#include <QStringList>

/// The titles of the file. Throws `ErreurFichier` when it is missing or cannot be read.
QStringList LireTitres(const QString &appPath);

/// The same for what goes without them where the file cannot be read.
QStringList TitresLus(const QString &appPath);

/// Sorts titles like names.
void TrierTitres(QStringList &titres);

/// Whether the file can hold a title, and an address too: the code page has all its characters, and
/// none of them separates the items of an address.
bool EstTitreEnregistrable(const QString &titre);

/// Whether a title is among others, whatever blanks stand in and around them.
bool EstTitreConnu(const QStringList &titres, const QString &titre);

/// Add and take off one title of the file as it stands now, which is then sorted; a missing file is
/// made. One that is known already is not added; blanks make no other title. They throw
/// `ErreurFichier`, also when the file cannot be read: it is untouched then.
void AjouterTitre(const QString &appPath, const QString &titre);
void RetirerTitre(const QString &appPath, const QString &titre);

/// A first address line with another title at its front, one blank behind it. The old one goes when
/// it is one of `titres` and a blank or the line's end follows it; of several the longest. An empty
/// title takes it away and puts none.
QString RemplacerTitre(const QString &ligne, const QStringList &titres, const QString &titre);
