#pragma once
// The titles of `Civilite.txt`: one a line.

#include <QString>
#include <QStringList>

/// The titles of the file. Throws `ErreurFichier` when it is missing or cannot be read.
QStringList LireTitres(const QString &appPath);

/// Add and take off one title of the file as it stands now, which is then sorted; a missing file is
/// made. They throw `ErreurFichier`, also when the file cannot be read: it is untouched then.
void AjouterTitre(const QString &appPath, const QString &titre);
void RetirerTitre(const QString &appPath, const QString &titre);

/// A first address line with another title at its front, one blank behind it. The old one goes when
/// it is one of `titres` and a blank or the line's end follows it; of several the longest. An empty
/// title takes it away and puts none.
QString RemplacerTitre(const QString &ligne, const QStringList &titres, const QString &titre);
