#pragma once

#include <QAbstractButton>
#include <QLabel>
#include <QMouseEvent>

/// The text beside a check box, which is its buddy: a click on it clicks the box.
class EtiquetteCase : public QLabel {
 public:
  using QLabel::QLabel;

 protected:
  void mouseReleaseEvent(QMouseEvent *evenement) override {
    auto *coche = qobject_cast<QAbstractButton *>(buddy());
    if (coche != nullptr && evenement->button() == Qt::LeftButton) coche->click();
    QLabel::mouseReleaseEvent(evenement);
  }
};
