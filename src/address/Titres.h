#pragma once
// The titles of `Civilite.txt`: one a line.

#include <QString>
#include <QStringList>

/// The titles of the file. Throws `ErreurFichier` when it cannot be read.
QStringList LireTitres(const QString &appPath);

/// Replaces the file; empty titles are left out. Throws `ErreurFichier`.
void EcrireTitres(const QString &appPath, const QStringList &titres);

/// A first address line with another title at its front, one blank behind it. The old one goes when
/// it is one of `titres` and a blank or the line's end follows it; of several the longest. An empty
/// title takes it away and puts none.
QString RemplacerTitre(const QString &ligne, const QStringList &titres, const QString &titre);
