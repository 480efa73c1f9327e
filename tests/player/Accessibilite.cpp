#include "player/Accessibilite.h"

#include "player/Echec.h"
#include "ui/Theme.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeySequence>
#include <QLabel>
#include <QMainWindow>
#include <QMap>
#include <QMenuBar>

using namespace Qt::StringLiterals;

namespace {

/// Parts of a control of the toolkit, which is what the user meets.
bool EstInterne(const QWidget *widget) {
  return widget->focusProxy() != nullptr || widget->objectName().startsWith(u"qt_"_s);
}

class Mnemoniques {
 public:
  void Prendre(const QString &texte) {
    const QString touche = QKeySequence::mnemonic(texte).toString();
    if (touche.isEmpty()) return;
    Exiger(!prises_.contains(touche),
           u"%1 expected for one control, for \"%2\" and \"%3\" found"_s.arg(
               touche, prises_.value(touche), texte));
    prises_[touche] = texte;
  }

 private:
  QMap<QString, QString> prises_;
};

void VerifierMenu(const QMenu &menu) {
  Mnemoniques mnemoniques;
  for (const QAction *action : menu.actions()) {
    if (!action->isVisible()) continue;
    mnemoniques.Prendre(action->text());
    if (action->menu() != nullptr) VerifierMenu(*action->menu());
  }
}

void VerifierContraste(const QLabel &etiquette) {
  if (etiquette.text().isEmpty()) return;
  const QColor encre = etiquette.palette().color(etiquette.foregroundRole());
  const QColor fond = etiquette.palette().color(etiquette.backgroundRole());
  Exiger(Contraste(encre, fond) >= 4.5, u"%1, %2 on %3: a contrast of 4.5 expected, %4 found"_s
                                            .arg(etiquette.objectName(), encre.name(), fond.name())
                                            .arg(Contraste(encre, fond), 0, 'f', 1));
}

}  // namespace

void VerifierAccessibilite(const QWidget &fenetre) {
  Exiger(!fenetre.isModal() || QGuiApplication::overrideCursor() == nullptr,
         u"no hourglass over %1 expected, one found"_s.arg(fenetre.objectName()));
  Mnemoniques mnemoniques;
  for (const auto *barre : fenetre.findChildren<QMenuBar *>()) {
    if (barre->window() != &fenetre) continue;
    for (const QAction *action : barre->actions()) {
      mnemoniques.Prendre(action->text());
      if (action->menu() != nullptr) VerifierMenu(*action->menu());
    }
  }
  for (QWidget *widget : fenetre.findChildren<QWidget *>()) {
    if (widget->window() != &fenetre || !widget->isVisible() || !widget->isEnabled()) continue;
    if (const auto *bouton = qobject_cast<QAbstractButton *>(widget))
      mnemoniques.Prendre(bouton->text());
    else if (const auto *groupe = qobject_cast<QGroupBox *>(widget))
      mnemoniques.Prendre(groupe->title());
    else if (const auto *etiquette = qobject_cast<QLabel *>(widget);
             etiquette != nullptr && etiquette->buddy() != nullptr)
      mnemoniques.Prendre(etiquette->text());
    if (const auto *etiquette = qobject_cast<const QLabel *>(widget)) VerifierContraste(*etiquette);
    if ((widget->focusPolicy() & Qt::TabFocus) == 0 || EstInterne(widget)) continue;
    const auto *acces = QAccessible::queryAccessibleInterface(widget);
    Exiger(acces != nullptr && !acces->text(QAccessible::Name).trimmed().isEmpty(),
           u"an accessible name of %1 expected, none found"_s.arg(widget->objectName()));
  }
}
