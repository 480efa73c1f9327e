#pragma once
// Drawn portraits, so that an example needs no photograph of anybody.

#include "Hasard.h"

#include <QImage>

/// Head and shoulders on a coloured background, the initials on the clothes; 240 x 300 pixels. A
/// QGuiApplication must exist.
QImage DessinerPortrait(const QString &initiales, bool femme, Hasard &hasard);
