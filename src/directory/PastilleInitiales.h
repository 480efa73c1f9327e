#pragma once

#include "ui/Theme.h"

#include <QLabel>
#include <QPainter>

/// Initials in a quiet disc, in the place of a portrait.
class PastilleInitiales : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void paintEvent(QPaintEvent *) override {
    QPainter dessin(this);
    dessin.setRenderHint(QPainter::Antialiasing);
    const QColor encre = EncreDiscrete(palette());
    QColor fond = encre;
    constexpr float kVoile = 0.12F;
    fond.setAlphaF(kVoile);
    dessin.setPen(Qt::NoPen);
    dessin.setBrush(fond);
    dessin.drawEllipse(rect());
    dessin.setPen(palette().color(QPalette::WindowText));
    dessin.drawText(rect(), Qt::AlignCenter, text());
  }
};
