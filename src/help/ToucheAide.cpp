#include "help/ToucheAide.h"

#include "help/Aide.h"
#include "platform/Erreurs.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>

namespace {

QString PageDe(const QWidget *widget) {
  while (widget != nullptr) {
    const QWidget *fenetre = widget->window();
    if (const QString page = PageAide(fenetre->objectName()); !page.isEmpty()) return page;
    widget = fenetre->parentWidget();
  }
  return SommaireAide();
}

}  // namespace

ToucheAide::ToucheAide(Boites &boites, Coquille &coquille, const QString &appPath, QObject *parent)
    : QObject(parent), boites_(boites), coquille_(coquille), appPath_(appPath) {
  qApp->installEventFilter(this);
}

bool ToucheAide::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() != QEvent::KeyPress || !objet->isWidgetType()) return false;
  const auto *touche = static_cast<QKeyEvent *>(evenement);
  if (touche->key() != Qt::Key_F1 || touche->modifiers() != Qt::NoModifier) return false;
  if (touche->isAutoRepeat()) return true;
  Signaler(boites_,
           [&] { OuvrirAide(coquille_, appPath_, PageDe(static_cast<QWidget *>(objet))); });
  return true;
}
