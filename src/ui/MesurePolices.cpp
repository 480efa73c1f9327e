#include "ui/MesurePolices.h"

#include <QFontMetricsF>

namespace {

// Large enough that hinting and rounding of the glyphs no longer count.
constexpr int kCadratin = 2048;
constexpr double kMillimetresParPoint = 25.4 / 72;

Millimetres Reduire(double pixels, const Police &police) {
  return Millimetres(pixels / kCadratin * police.points * kMillimetresParPoint);
}

}  // namespace

QFont PoliceEnPixels(const Police &police, int pixels) {
  QFont font(police.nom);
  font.setPixelSize(pixels);
  font.setBold(police.gras);
  font.setUnderline(police.souligne);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

Millimetres MesurePolices::Largeur(const QString &texte, const Police &police) const {
  return Reduire(QFontMetricsF(PoliceEnPixels(police, kCadratin)).horizontalAdvance(texte), police);
}

Millimetres MesurePolices::HauteurLigne(const Police &police) const {
  return Reduire(QFontMetricsF(PoliceEnPixels(police, kCadratin)).lineSpacing(), police);
}
