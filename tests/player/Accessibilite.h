#pragma once

#include <QWidget>

/// A dialog waits without an hourglass over its buttons. Every control of a window that the
/// keyboard reaches has an accessible name, and no mnemonic stands twice in the window or in one of
/// its menus. Throws `Echec`.
void VerifierAccessibilite(const QWidget &fenetre);
