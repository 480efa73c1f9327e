#include "ui/ComboASuppression.h"

#include <QKeyEvent>

void ComboASuppression::keyPressEvent(QKeyEvent *evenement) {
  if (evenement->key() == Qt::Key_Delete)
    emit SuppressionDemandee();
  else
    ComboSaisie::keyPressEvent(evenement);
}
