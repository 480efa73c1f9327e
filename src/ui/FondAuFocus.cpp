#include "ui/FondAuFocus.h"

#include "ui/PaletteLisible.h"
#include "ui/Theme.h"

#include <QEvent>

FondAuFocus::FondAuFocus(QLineEdit *champ, int gris) : QObject(champ), champ_(champ), gris_(gris) {
  champ->installEventFilter(this);
}

bool FondAuFocus::eventFilter(QObject *objet, QEvent *evenement) {
  const auto type = evenement->type();
  if (type == QEvent::FocusIn || type == QEvent::FocusOut || type == QEvent::ReadOnlyChange)
    Peindre(type == QEvent::FocusIn);
  return QObject::eventFilter(objet, evenement);
}

QWidget *FondAuFocus::Surface() const {
  return champ_->focusProxy() != nullptr ? champ_->focusProxy() : champ_;
}

void FondAuFocus::Encrer(const QColor &encre) {
  if (encre == encre_) return;
  encre_ = encre;
  Peindre(Surface()->hasFocus());
}

void FondAuFocus::Peindre(bool focus) {
  QPalette palette;
  const QColor fond = palette.color(QPalette::Base);
  const int ecart = 255 - gris_;
  if (champ_->isReadOnly())
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
  else if (focus && EstSombre(fond))
    palette.setColor(QPalette::Base,
                     QColor(fond.red() + ecart, fond.green() + ecart, fond.blue() + ecart));
  else if (focus)
    palette.setColor(QPalette::Base, QColor(gris_, gris_, gris_));
  if (encre_.isValid()) palette.setColor(QPalette::Text, encre_);
  Surface()->setPalette(PaletteLisible::De(palette));
}
