#pragma once

#include "ui/MesurePolices.h"

#include <QColor>
#include <QPainter>

/// The ground of paper on the screen, in every theme.
inline constexpr QColor kPapier(255, 254, 250);

/// Lines of text drawn on a widget as they stand on paper: measured by the design metrics of their
/// fonts, and scaled, so that lines keep their proportions at every size.
class FeuilleEcran : public Feuille {
 public:
  /// `origine` in pixels is the corner from which places count. Paper is white in every theme, and
  /// so its ink is black.
  FeuilleEcran(QPainter &peintre, QPointF origine, double pixelsParMillimetre,
               const QColor &encre = Qt::black)
      : peintre_(peintre), origine_(origine), echelle_(pixelsParMillimetre), encre_(encre) {}

  void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) override;
  void Tracer(Point de, Point a, Millimetres epaisseur) override;
  Millimetres Largeur(const QString &texte, const Police &police) const override {
    return mesure_.Largeur(texte, police);
  }
  Millimetres HauteurLigne(const Police &police) const override {
    return mesure_.HauteurLigne(police);
  }

 private:
  QPainter &peintre_;
  QPointF origine_;
  double echelle_;
  QColor encre_;
  MesurePolices mesure_;
};

/// Pixels of a widget's screen for a millimetre of true size.
double PixelsParMillimetre(const QWidget &fenetre);
