#include "ui/SelectionAuFocus.h"

#include <QFocusEvent>

SelectionAuFocus::SelectionAuFocus(QLineEdit *champ) : QObject(champ), champ_(champ) {
  champ->installEventFilter(this);
}

bool SelectionAuFocus::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::FocusIn) {
    champ_->selectAll();
    parLaSouris_ = static_cast<QFocusEvent *>(evenement)->reason() == Qt::MouseFocusReason;
  } else if (evenement->type() == QEvent::MouseButtonRelease && parLaSouris_) {
    // The press behind the focus has put the caret somewhere.
    parLaSouris_ = false;
    if (!champ_->hasSelectedText()) champ_->selectAll();
  }
  return QObject::eventFilter(objet, evenement);
}
