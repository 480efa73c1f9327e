#include "ui/EntreePresse.h"

#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QPushButton>
#include <QToolButton>

namespace {

/// The button that nothing else presses by Enter.
QAbstractButton *Bouton(QObject *objet) {
  if (auto *outil = qobject_cast<QToolButton *>(objet)) return outil;
  auto *bouton = qobject_cast<QPushButton *>(objet);
  const bool seul = bouton != nullptr && (bouton->autoDefault() || bouton->isDefault()) &&
                    qobject_cast<QDialog *>(bouton->window()) != nullptr;
  return seul ? nullptr : bouton;
}

}  // namespace

EntreePresse::EntreePresse() {
  qApp->installEventFilter(this);
}

bool EntreePresse::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() != QEvent::KeyPress) return false;
  const auto &touche = *static_cast<const QKeyEvent *>(evenement);
  const bool entree = touche.key() == Qt::Key_Return || touche.key() == Qt::Key_Enter;
  QAbstractButton *bouton = entree ? Bouton(objet) : nullptr;
  if (bouton == nullptr || (touche.modifiers() & ~Qt::KeypadModifier) != 0) return false;
  if (!touche.isAutoRepeat()) bouton->click();
  return true;
}
