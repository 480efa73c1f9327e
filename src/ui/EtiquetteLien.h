#pragma once

#include "ui/EtiquetteElidee.h"

#include <QKeyEvent>
#include <QMouseEvent>

/// A label of one line that is a link as a whole: a click, Enter or the space bar gives its text by
/// `linkActivated`. It is underlined while the mouse is over it.
class EtiquetteLien : public EtiquetteElidee {
 public:
  explicit EtiquetteLien(QWidget *parent = nullptr) : EtiquetteElidee(parent) {
    setSizePolicy(QSizePolicy::Preferred,
                  QSizePolicy::Fixed);  // as wide as its text, where it fits
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
  }

 protected:
  void enterEvent(QEnterEvent *evenement) override {
    EtiquetteElidee::enterEvent(evenement);
    Souligner(true);
  }
  void leaveEvent(QEvent *evenement) override {
    EtiquetteElidee::leaveEvent(evenement);
    Souligner(false);
  }
  void hideEvent(QHideEvent *evenement) override {
    EtiquetteElidee::hideEvent(evenement);
    Souligner(false);  // nothing tells a hidden label that the mouse has left it
  }
  void mousePressEvent(QMouseEvent *evenement) override {
    evenement->setAccepted(evenement->button() == Qt::LeftButton);
  }
  void mouseReleaseEvent(QMouseEvent *evenement) override {
    if (evenement->button() == Qt::LeftButton && rect().contains(evenement->position().toPoint()))
      emit linkActivated(text());
  }
  void keyPressEvent(QKeyEvent *evenement) override {
    switch (evenement->key()) {
      case Qt::Key_Return:
      case Qt::Key_Enter:
      case Qt::Key_Space:
        if (!evenement->isAutoRepeat()) emit linkActivated(text());
        break;
      default:
        EtiquetteElidee::keyPressEvent(evenement);
    }
  }

 private:
  void Souligner(bool souligne) {
    QFont police = font();
    if (police.underline() == souligne) return;
    police.setUnderline(souligne);
    setFont(police);
  }
};
