#pragma once

#include <QWidget>

/// Every control of a window that the keyboard reaches has an accessible name, and no mnemonic
/// stands twice in the window or in one of its menus. Throws `Echec`.
void VerifierAccessibilite(const QWidget &fenetre);
