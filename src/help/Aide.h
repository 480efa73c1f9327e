#pragma once
// The user guide: its pages stand beside the delivered files and are shown by the desktop's
// browser.

#include <QString>

class Coquille;

/// Page of the guide, with its anchor, for a window known by its name; an empty text for a window
/// that has none of its own.
QString PageAide(const QString &fenetre);

/// The page on which the guide opens.
QString SommaireAide();

/// Opens a page of the guide ("enveloppes.html#carnet"). Throws `ErreurFichier` when it is not
/// there or nothing can open it.
void OuvrirAide(Coquille &coquille, const QString &appPath, const QString &page);
