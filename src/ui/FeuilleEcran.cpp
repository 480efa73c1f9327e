#include "ui/FeuilleEcran.h"

#include <QFontMetricsF>
#include <QWidget>

#include <cmath>

void FeuilleEcran::Ecrire(Millimetres x, Millimetres y, const Police &police,
                          const QString &texte) {
  constexpr int kFin = 100;  // steps of a point: font sizes in pixels are whole numbers
  const QFont font = PoliceEnPixels(police, static_cast<int>(std::lround(police.points * kFin)));
  const double echelle = echelle_ * kPoint.valeur / kFin;
  peintre_.save();
  peintre_.translate(origine_ + QPointF(x.valeur, y.valeur) * echelle_);
  peintre_.scale(echelle, echelle);
  peintre_.setFont(font);
  peintre_.setPen(encre_);
  peintre_.drawText(QPointF(0, QFontMetricsF(font).ascent()), texte);
  peintre_.restore();
}

void FeuilleEcran::Tracer(Point de, Point a, Millimetres epaisseur) {
  const auto pixels = [this](Point point) {
    return origine_ + QPointF(point.x.valeur, point.y.valeur) * echelle_;
  };
  peintre_.setPen(QPen(encre_, epaisseur.valeur * echelle_, Qt::SolidLine, Qt::FlatCap));
  peintre_.drawLine(pixels(de), pixels(a));
}

double PixelsParMillimetre(const QWidget &fenetre) {
  return fenetre.logicalDpiX() / kPouce.valeur;
}
