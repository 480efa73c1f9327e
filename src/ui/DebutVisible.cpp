#include "ui/DebutVisible.h"

#include <QFocusEvent>

DebutVisible::DebutVisible(QLineEdit *champ) : QObject(champ), champ_(champ) {
  // The field of a combo hears of the focus by its combo alone.
  (champ->focusProxy() != nullptr ? champ->focusProxy() : champ)->installEventFilter(this);
  connect(champ, &QLineEdit::textChanged, this, [champ] {
    if (!champ->hasFocus() && !champ->isModified()) champ->setCursorPosition(0);
  });
}

bool DebutVisible::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::FocusOut) {
    const auto cause = static_cast<const QFocusEvent *>(evenement)->reason();
    // Another window or a menu gives the focus back, and the caret should be where it was.
    if (cause != Qt::ActiveWindowFocusReason && cause != Qt::PopupFocusReason &&
        cause != Qt::MenuBarFocusReason)
      champ_->setCursorPosition(0);
  }
  return QObject::eventFilter(objet, evenement);
}
