#include "ui/MesurePolices.h"

#include "platform/Caracteres.h"

#include <QFontMetricsF>

namespace {

// Large enough that hinting and rounding of the glyphs no longer count.
constexpr int kCadratin = 2048;

Millimetres Reduire(double pixels, const Police &police) {
  return kPoint * (pixels / kCadratin * police.points);
}

}  // namespace

QFont PoliceEnPixels(const Police &police, int pixels) {
  QFont font = Caracteres(police);
  font.setPixelSize(pixels);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

Millimetres MesurePolices::Largeur(const QString &texte, const Police &police) const {
  return Reduire(QFontMetricsF(PoliceEnPixels(police, kCadratin)).horizontalAdvance(texte), police);
}

Millimetres MesurePolices::HauteurLigne(const Police &police) const {
  return Reduire(QFontMetricsF(PoliceEnPixels(police, kCadratin)).lineSpacing(), police);
}
