#pragma once

#include <QIcon>

class QLabel;

/// Chooses where icons come from: the desktop's theme, and Breeze, light or dark as the windows
/// are, for what that theme lacks.
void PreparerIcones();

/// An icon by its freedesktop name. "loupe" is ours: themes have a magnifier for searches only.
QIcon Icone(const char16_t *nom);

/// The program's own icon.
QIcon IconeProgramme();

/// Lets a label show an icon, its side so many pixels long at the size as designed.
void PoserIcone(QLabel *etiquette, const QIcon &icone, int cote);
/// Draws such an icon anew, so many times as large. Another label stays as it is.
void MettreIcone(QLabel &etiquette, double echelle);
