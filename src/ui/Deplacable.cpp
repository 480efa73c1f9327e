#include "ui/Deplacable.h"

#include "ui/FeuilleEcran.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

Deplacable::Deplacable(QWidget *parent) : QLabel(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setCursor(Qt::OpenHandCursor);
}

void Deplacable::mousePressEvent(QMouseEvent *evenement) {
  if (evenement->button() != Qt::LeftButton) return;
  tenu_ = true;
  depart_ = evenement->globalPosition();
  setCursor(Qt::ClosedHandCursor);
  emit Pris();
}

void Deplacable::mouseMoveEvent(QMouseEvent *evenement) {
  if (tenu_ && evenement->buttons() == Qt::LeftButton)
    emit Deplace((evenement->globalPosition() - depart_) / PixelsParMillimetre(*this));
}

void Deplacable::mouseReleaseEvent(QMouseEvent *) {
  tenu_ = false;
  setCursor(Qt::OpenHandCursor);
}

void Deplacable::keyPressEvent(QKeyEvent *evenement) {
  QPointF pas;
  switch (evenement->key()) {
    case Qt::Key_Left:
      pas = {-pas_, 0};
      break;
    case Qt::Key_Right:
      pas = {pas_, 0};
      break;
    case Qt::Key_Up:
      pas = {0, -pas_};
      break;
    case Qt::Key_Down:
      pas = {0, pas_};
      break;
    default:
      QLabel::keyPressEvent(evenement);
      return;
  }
  emit Pris();
  emit Deplace(pas);
}

void Deplacable::focusInEvent(QFocusEvent *evenement) {
  QLabel::focusInEvent(evenement);
  update();
}

void Deplacable::focusOutEvent(QFocusEvent *evenement) {
  QLabel::focusOutEvent(evenement);
  update();
}

void Deplacable::paintEvent(QPaintEvent *evenement) {
  QLabel::paintEvent(evenement);
  if (!hasFocus()) return;
  QPainter dessin(this);
  dessin.setPen(QPen(QColor(48, 126, 173), 2));
  dessin.drawRect(rect().adjusted(1, 1, -1, -1));
}
