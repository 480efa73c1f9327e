#include "ui/ComboASuppression.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace {

bool EstSuppression(const QEvent &evenement) {
  return evenement.type() == QEvent::KeyPress &&
         static_cast<const QKeyEvent &>(evenement).key() == Qt::Key_Delete;
}

}  // namespace

ComboASuppression::ComboASuppression(QWidget *parent) : ComboSaisie(parent) {
  lineEdit()->installEventFilter(this);  // it would take the key for itself
}

void ComboASuppression::keyPressEvent(QKeyEvent *evenement) {
  if (EstSuppression(*evenement))
    emit SuppressionDemandee();
  else
    ComboSaisie::keyPressEvent(evenement);
}

bool ComboASuppression::eventFilter(QObject *objet, QEvent *evenement) {
  if (!EstSuppression(*evenement)) return ComboSaisie::eventFilter(objet, evenement);
  emit SuppressionDemandee();
  return true;
}
