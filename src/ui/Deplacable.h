#pragma once

#include <QLabel>
#include <QPointF>

/// A label that is dragged with the mouse or moved with the arrow keys. It does not move itself:
/// whoever listens puts it where it belongs.
class Deplacable : public QLabel {
  Q_OBJECT

 public:
  explicit Deplacable(QWidget *parent = nullptr);

  /// How far an arrow key moves it, in millimetres of the screen.
  void ChangerPas(double millimetres) { pas_ = millimetres; }

 signals:
  /// A drag begins.
  void Pris();
  /// Where the drag has come to, in millimetres of the screen from where it began.
  void Deplace(QPointF deplacement);

 protected:
  void mousePressEvent(QMouseEvent *evenement) override;
  void mouseMoveEvent(QMouseEvent *evenement) override;
  void mouseReleaseEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;
  void focusInEvent(QFocusEvent *evenement) override;
  void focusOutEvent(QFocusEvent *evenement) override;
  void paintEvent(QPaintEvent *evenement) override;

 private:
  double pas_ = 1;
  bool tenu_ = false;
  QPointF depart_;
};
