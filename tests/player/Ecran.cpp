#include "player/Ecran.h"

#include "player/Echec.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

bool EstFrm(const QWidget *fenetre) {
  return fenetre->objectName().startsWith(u"Frm"_s);
}

bool EstSurgissante(const QWidget *fenetre) {
  return fenetre->windowType() == Qt::Popup;
}

/// An object of this window, in one of its pop-ups too, but not of a dialog that belongs to it.
bool Appartient(const QObject *objet, const QWidget *fenetre) {
  for (; objet != nullptr; objet = objet->parent()) {
    if (objet == fenetre) return true;
    const auto *widget = qobject_cast<const QWidget *>(objet);
    if (widget != nullptr && widget->isWindow() && !EstSurgissante(widget)) return false;
  }
  return false;
}

template <typename Classe>
Classe *Chercher(const QWidget *fenetre, const QString &nom) {
  for (Classe *objet : fenetre->findChildren<Classe *>(nom))
    if (Appartient(objet, fenetre)) return objet;
  return nullptr;
}

/// Whether the mouse finds the item: in the menu bar, or in a menu that stands open.
bool EstAtteignable(const QAction *action) {
  if (!action->isVisible() || !action->isEnabled()) return false;
  for (const QObject *lieu : action->associatedObjects()) {
    if (const auto *menu = qobject_cast<const QMenu *>(lieu)) {
      if (menu->isVisible() || EstAtteignable(menu->menuAction())) return true;
    } else if (const auto *widget = qobject_cast<const QWidget *>(lieu)) {
      const bool montre = qobject_cast<const QMenuBar *>(widget) != nullptr ||
                          qobject_cast<const QToolBar *>(widget) != nullptr ||
                          qobject_cast<const QAbstractButton *>(widget) != nullptr;
      if (montre && widget->isVisible()) return true;
    }
  }
  return false;
}

/// A menu that stands open takes the user's next act; another control closes it first.
void FermerSurgissante(const Controle &controle) {
  QWidget *surgissante = QApplication::activePopupWidget();
  if (surgissante == nullptr) return;
  if (controle.action != nullptr) {
    for (const QObject *lieu : controle.action->associatedObjects())
      if (const auto *menu = qobject_cast<const QMenu *>(lieu);
          menu != nullptr && menu->isVisible())
        return;
  }
  for (const QObject *o = surgissante; controle.widget != nullptr && o != nullptr; o = o->parent())
    if (o == controle.widget) return;
  surgissante->close();
  throw Reessayer{};
}

QString NomsMontres() {
  QStringList noms;
  for (const QWidget *fenetre : QApplication::topLevelWidgets())
    if (fenetre->isVisible() && EstFrm(fenetre)) noms.append(fenetre->objectName());
  return noms.isEmpty() ? u"none"_s : noms.join(u", "_s);
}

QString Etat(const QAction *action) {
  if (!action->isVisible()) return u"a hidden one"_s;
  return action->isEnabled() ? u"one in no menu that stands open"_s : u"a disabled one"_s;
}

}  // namespace

QString Controle::Sinon(const QString &attendu) const {
  return u"%1: %2 expected, %3 found"_s.arg(
      nom, attendu,
      widget == nullptr ? u"a menu item"_s
                        : QString::fromLatin1(widget->metaObject()->className()));
}

Ecran::Ecran() {
  qApp->installEventFilter(this);
}

bool Ecran::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::Show && objet->isWidgetType()) {
    auto *fenetre = static_cast<QWidget *>(objet);
    if (fenetre->isWindow() && EstFrm(fenetre)) {
      montrees_.removeIf([&](const auto &autre) { return autre.isNull() || autre == fenetre; });
      montrees_.append(fenetre);
    }
  }
  return QObject::eventFilter(objet, evenement);
}

QWidget *Ecran::FenetreActive() const {
  if (QWidget *dialogue = QApplication::activeModalWidget()) return dialogue;
  for (auto fenetre = montrees_.crbegin(); fenetre != montrees_.crend(); ++fenetre)
    if (*fenetre && (*fenetre)->isVisible()) return *fenetre;
  return nullptr;
}

QWidget *Ecran::Fenetre(const QString &nom) {
  QWidget *trouvee = nullptr;
  for (QWidget *fenetre : QApplication::topLevelWidgets())
    if (fenetre->objectName() == nom && !EstSurgissante(fenetre) &&
        (trouvee == nullptr || fenetre->isVisible()))
      trouvee = fenetre;
  return trouvee;
}

Controle Ecran::Trouver(const QString &nom) const {
  const qsizetype point = nom.indexOf(u'.');
  QWidget *fenetre = FenetreActive();
  if (point >= 0)
    fenetre = Fenetre(nom.left(point));
  else if (QWidget *elle = Fenetre(nom))
    fenetre = elle;
  Exiger(fenetre != nullptr,
         u"%1: its window expected, on the screen: %2"_s.arg(nom, NomsMontres()));

  const QString objet = nom.mid(point + 1).replace(u'(', u'_').remove(u')');
  if (fenetre->objectName() == objet) return {nom, fenetre, fenetre, nullptr};
  if (auto *widget = Chercher<QWidget>(fenetre, objet)) return {nom, fenetre, widget, nullptr};
  if (auto *action = Chercher<QAction>(fenetre, objet)) return {nom, fenetre, nullptr, action};
  throw Echec{u"control %1 expected, none of this name in %2; on the screen: %3"_s.arg(
      objet, fenetre->objectName(), NomsMontres())};
}

Controle Ecran::Atteindre(const QString &nom) const {
  const Controle controle = Trouver(nom);
  const QWidget *dialogue = QApplication::activeModalWidget();
  Exiger(dialogue == nullptr || dialogue == controle.fenetre,
         u"%1 expected within reach, it is behind the dialog %2"_s.arg(
             nom, dialogue ? dialogue->objectName() : QString()));
  Exiger(controle.fenetre == FenetreActive() || nom.contains(u'.'),
         u"%1 expected as the active window, on the screen: %2"_s.arg(nom, NomsMontres()));
  Exiger(controle.fenetre->isVisible(),
         u"%1 expected within reach, %2 is hidden; on the screen: %3"_s.arg(
             nom, controle.fenetre->objectName(), NomsMontres()));
  FermerSurgissante(controle);
  if (controle.action != nullptr) {
    Exiger(EstAtteignable(controle.action),
           u"%1: an item within reach expected, %2 found"_s.arg(nom, Etat(controle.action)));
    return controle;
  }
  Exiger(controle.widget->isVisible(), u"%1: visible expected, hidden found"_s.arg(nom));
  Exiger(controle.widget->isEnabled(), u"%1: enabled expected, disabled found"_s.arg(nom));
  for (QWidget *parent = controle.widget->parentWidget(); parent; parent = parent->parentWidget())
    if (auto *zone = qobject_cast<QScrollArea *>(parent))
      zone->ensureWidgetVisible(controle.widget);
  return controle;
}

void Ecran::DonnerFocus() const {
  QWidget *fenetre = FenetreActive();
  if (fenetre == nullptr || fenetre->isMinimized() || QApplication::activePopupWidget() != nullptr)
    return;
  if (QApplication::activeWindow() != fenetre) {
    fenetre->activateWindow();
    QCoreApplication::processEvents();
  }
}
