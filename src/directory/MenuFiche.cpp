#include "directory/MenuFiche.h"

#include "directory/ArbreVelmiras.h"
#include "ui/RepriseDuChamp.h"

#include <QAction>
#include <QKeyEvent>
#include <QMenu>

#include <algorithm>
#include <utility>

MenuFiche::MenuFiche(const Items &items, ArbreVelmiras &arbre, QWidget &fenetre)
    : QObject(&fenetre), items_(items), arbre_(arbre) {
  arbre_.addAction(items_.mnuSupprimer);  // its key is the list's
  arbre_.installEventFilter(this);
  for (QWidget *champ : fenetre.findChildren<QWidget *>())
    if (champ->inherits("QLineEdit") || champ->inherits("QPlainTextEdit"))
      champ->installEventFilter(this);
  Brancher();
  MettreAJour();
}

void MenuFiche::Brancher() {
  connect(arbre_.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &MenuFiche::MettreAJour);
  const QAbstractItemModel *modele = arbre_.model();
  for (const auto change : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
    connect(modele, change, this, &MenuFiche::MettreAJour);
  connect(modele, &QAbstractItemModel::modelReset, this, &MenuFiche::MettreAJour);
}

void MenuFiche::MettreAJour() {
  const bool fiche = Index(arbre_.Selection()) != 0;
  for (QAction *action : items_.deFiche) action->setEnabled(fiche);
  const bool liste = arbre_.Modele().NombreEnfants() > 0;
  for (QAction *action : items_.deListe) action->setEnabled(liste);
}

bool MenuFiche::EstDuMenu(const QKeyEvent &touche) const {
  return std::ranges::any_of(items_.menu.actions(), [&](const QAction *action) {
    return action->shortcutContext() == Qt::WindowShortcut &&
           action->shortcut() == QKeySequence(touche.keyCombination());
  });
}

bool MenuFiche::EstEntree(const QKeyEvent &touche, bool annonce) {
  // An Enter that has closed the open list of a combo comes here too, but is not announced here.
  const bool entree = touche.key() == Qt::Key_Return || touche.key() == Qt::Key_Enter;
  const bool annoncee = std::exchange(entreeAnnoncee_, annonce && entree);
  return !annonce && entree && annoncee && !touche.isAutoRepeat();
}

bool MenuFiche::eventFilter(QObject *objet, QEvent *evenement) {
  const bool annonce = evenement->type() == QEvent::ShortcutOverride;
  if (!annonce && evenement->type() != QEvent::KeyPress) return false;
  const auto &touche = *static_cast<const QKeyEvent *>(evenement);
  if (objet == &arbre_) {
    if (EstEntree(touche, annonce)) emit ModificationDemandee();
  } else if (annonce && EstDuMenu(touche) && !RepriseDuChamp(objet, touche)) {
    evenement->ignore();  // some are those of a text field as well
    return true;
  }
  return false;
}
