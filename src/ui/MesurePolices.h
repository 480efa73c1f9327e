#pragma once

#include "platform/Imprimante.h"

#include <QFont>

/// Text measured by the design metrics of its font, without a device and without the rounding of
/// one: the same figures on every screen.
class MesurePolices : public MesureTexte {
 public:
  Millimetres Largeur(const QString &texte, const Police &police) const override;
  Millimetres HauteurLigne(const Police &police) const override;
};

/// A font of this name and style, `pixels` high.
QFont PoliceEnPixels(const Police &police, int pixels);
