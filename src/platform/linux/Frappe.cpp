#include "platform/linux/Frappe.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

Frappe::Frappe(const QWidget &boite) : boite_(boite) {
  qApp->installEventFilter(this);
}

bool Frappe::EstDeLaBoite(const QObject &objet) const {
  if (objet.isWidgetType()) return static_cast<const QWidget &>(objet).window() == &boite_;
  return !objet.isWindowType() || &objet == boite_.windowHandle();
}

bool Frappe::Prendre(const QKeyEvent &touche) {
  if ((touche.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0)
    return false;
  if (touche.key() == Qt::Key_Backspace) {
    texte_.chop(1);
    return true;
  }
  if (touche.text().isEmpty() || !touche.text().front().isPrint()) return false;
  texte_ += touche.text();
  return true;
}

bool Frappe::eventFilter(QObject *objet, QEvent *evenement) {
  if (QApplication::activeModalWidget() != nullptr) return false;
  const bool dehors = !EstDeLaBoite(*objet);
  switch (evenement->type()) {
    case QEvent::ShortcutOverride:
      if (dehors) evenement->accept();  // no command of the window behind
      return dehors;
    case QEvent::KeyPress:
      return Prendre(*static_cast<QKeyEvent *>(evenement)) || dehors;
    case QEvent::InputMethod:
      if (dehors) texte_ += static_cast<QInputMethodEvent *>(evenement)->commitString();
      return dehors;
    case QEvent::Close:
      if (dehors) evenement->ignore();
      return dehors;
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::ContextMenu:
    case QEvent::Wheel:
    case QEvent::TouchBegin:
    case QEvent::DragEnter:
      return dehors;
    default:
      return false;
  }
}
