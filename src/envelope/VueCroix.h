#pragma once

#include "platform/Papier.h"

#include <QWidget>

class Deplacable;

/// The middle of a calibration page, twice as large: where the cross should be, by the fold of the
/// paper, and where it was found. The found one is dragged, or moved by the arrow keys.
class VueCroix : public QWidget {
  Q_OBJECT

 public:
  explicit VueCroix(QWidget *parent = nullptr);

  /// How far the cross was found from the middle; what is beyond the picture stands at its edge.
  void Montrer(Point ecart);

 signals:
  void Deplacee(Point ecart);

 protected:
  void paintEvent(QPaintEvent *evenement) override;

 private:
  Deplacable *croix_;
  Point ecart_, depart_;
};
