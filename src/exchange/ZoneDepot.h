#pragma once

#include <QFrame>
#include <QPainter>

/// A place that invites to drop files on it: a dashed frame, which fills while they are held over
/// it.
class ZoneDepot : public QFrame {
 public:
  using QFrame::QFrame;

  void Survoler(bool survolee) {
    survolee_ = survolee;
    update();
  }

 protected:
  void paintEvent(QPaintEvent *) override {
    constexpr int kMarge = 6, kRayon = 12;
    constexpr float kVoile = 0.14F, kTrait = 0.5F;
    QPainter dessin(this);
    dessin.setRenderHint(QPainter::Antialiasing);
    const QColor vive = palette().color(QPalette::Highlight);
    QColor fond = vive;
    fond.setAlphaF(kVoile);
    dessin.setBrush(survolee_ ? QBrush(fond) : QBrush(Qt::NoBrush));
    QColor trait = palette().color(QPalette::WindowText);
    trait.setAlphaF(kTrait);
    dessin.setPen(QPen(survolee_ ? vive : trait, 2, Qt::DashLine));
    dessin.drawRoundedRect(rect().adjusted(kMarge, kMarge, -kMarge, -kMarge), kRayon, kRayon);
  }

 private:
  bool survolee_ = false;
};
