#pragma once

#include <QLabel>

/// Draws around a control, while it is painted, that it has the focus.
void DessinerFocus(QWidget &controle);

/// A label of one line that never widens its window: what does not fit is cut with an ellipsis, and
/// shown whole in its tip. `text()` stays whole.
class EtiquetteElidee : public QLabel {
  Q_OBJECT

 public:
  explicit EtiquetteElidee(QWidget *parent = nullptr);

  /// Where a text that does not fit is cut: at its end, unless told otherwise.
  void CouperA(Qt::TextElideMode coupe) { coupe_ = coupe; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent *evenement) override;
  bool event(QEvent *evenement) override;

 private:
  QString Ligne() const;

  Qt::TextElideMode coupe_ = Qt::ElideRight;
};
