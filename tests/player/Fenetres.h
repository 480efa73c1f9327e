#pragma once
// What holds for every window.

#include <QHash>
#include <QString>
#include <QStringList>
#include <QWidget>

/// Whether "&" marks a key in the control's text.
bool PorteUneMarque(const QObject &objet);

/// A dialog waits without an hourglass over its buttons. Every control of a window that the
/// keyboard reaches has an accessible name, no mnemonic stands twice in the window or in one of its
/// menus, and labels are told from their ground. Throws `Echec`.
void VerifierAccessibilite(const QWidget &fenetre);

/// Sizes of a window and of all that lies in it, to be held against those at another size of the
/// program, by what they are of, as "loupe: FrmLoupe/LblTel, font".
using Mesures = QHash<QString, double>;

/// Adds those of a window, on the screen or not, under the name of a picture.
void Mesurer(const QString &nom, const QWidget &fenetre, Mesures &mesures);

/// What is not so many times as large as in `dessin`, a sentence each.
QStringList MalAEchelle(const Mesures &dessin, const Mesures &agrandie, double echelle);
