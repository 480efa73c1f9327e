#include "ui/FondAuFocus.h"

#include "ui/Theme.h"

#include <QEvent>

FondAuFocus::FondAuFocus(QLineEdit *champ, int gris) : QObject(champ), champ_(champ), gris_(gris) {
  champ->installEventFilter(this);
}

bool FondAuFocus::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::FocusIn) {
    QPalette palette;
    const QColor fond = palette.color(QPalette::Base);
    const int ecart = 255 - gris_;
    palette.setColor(QPalette::Base,
                     EstSombre(fond)
                         ? QColor(fond.red() + ecart, fond.green() + ecart, fond.blue() + ecart)
                         : QColor(gris_, gris_, gris_));
    champ_->setPalette(palette);
  } else if (evenement->type() == QEvent::FocusOut) {
    champ_->setPalette(QPalette());
  }
  return QObject::eventFilter(objet, evenement);
}
