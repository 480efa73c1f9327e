#include "ui/Icones.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

using namespace Qt::StringLiterals;

void PreparerIcones() {
  const bool sombre = QApplication::palette().color(QPalette::Window).lightness() < 128;
  const QString breeze = sombre ? u"breeze-dark"_s : u"breeze"_s;
  QIcon::setFallbackThemeName(breeze);
  if (QIcon::themeName().isEmpty() || QIcon::themeName() == u"hicolor"_s)
    QIcon::setThemeName(breeze);
}

QIcon Icone(const char16_t *nom) {
  return QIcon::fromTheme(QString::fromUtf16(nom));
}

QIcon IconeProgramme() {
  QIcon icone;
  for (const int cote : {16, 32, 48, 128}) {
    QPixmap image(cote, cote);
    image.fill(Qt::transparent);
    QPainter dessin(&image);
    dessin.setRenderHint(QPainter::Antialiasing);
    dessin.scale(cote / 48.0, cote / 48.0);
    dessin.setPen(QPen(QColor(20, 70, 100), 2));
    dessin.setBrush(QColor(48, 126, 173));
    dessin.drawRoundedRect(QRectF(3, 9, 42, 30), 4, 4);
    QPainterPath rabat(QPointF(4, 11));
    rabat.lineTo(24, 27);
    rabat.lineTo(44, 11);
    dessin.setPen(QPen(Qt::white, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    dessin.setBrush(Qt::NoBrush);
    dessin.drawPath(rabat);
    icone.addPixmap(image);
  }
  return icone;
}
