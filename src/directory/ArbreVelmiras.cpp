#include "directory/ArbreVelmiras.h"

#include <QKeyEvent>
#include <QMouseEvent>

ArbreVelmiras::ArbreVelmiras(QWidget *parent) : QTreeView(parent) {
  setModel(&modele_);
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setRootIsDecorated(false);
  setItemsExpandable(false);  // the root is always open
  setExpandsOnDoubleClick(false);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
}

void ArbreVelmiras::Remplir(const QString &titre, std::vector<NoeudListe> noeuds) {
  modele_.Remplir(titre, std::move(noeuds));
  expand(modele_.Racine());
}

QModelIndex ArbreVelmiras::Selection() const {
  const QModelIndexList choisis = selectionModel()->selectedIndexes();
  return choisis.isEmpty() ? QModelIndex() : choisis.first();
}

void ArbreVelmiras::SelectionnerEtCliquer(const QModelIndex &noeud) {
  setCurrentIndex(noeud);
  scrollTo(noeud);
  emit NoeudClique(noeud, Qt::LeftButton);
}

void ArbreVelmiras::CliquerPremier() {
  if (modele_.NombreEnfants() > 0) SelectionnerEtCliquer(modele_.index(0, 0, modele_.Racine()));
}

void ArbreVelmiras::CliquerSelection() {
  if (const QModelIndex noeud = Selection(); noeud.isValid()) SelectionnerEtCliquer(noeud);
}

bool ArbreVelmiras::BasculerSous(const QMouseEvent &evenement) {
  if (!modele_.CochesMontrees() || evenement.button() != Qt::LeftButton) return false;
  const QModelIndex noeud = indexAt(evenement.position().toPoint());
  if (noeud.isValid()) modele_.Basculer(noeud);
  return true;
}

void ArbreVelmiras::mousePressEvent(QMouseEvent *evenement) {
  if (BasculerSous(*evenement)) return;
  QTreeView::mousePressEvent(evenement);
  const QModelIndex noeud = indexAt(evenement->position().toPoint());
  if (noeud.isValid()) emit NoeudClique(noeud, evenement->button());
}

void ArbreVelmiras::mouseDoubleClickEvent(QMouseEvent *evenement) {
  // Of two quick clicks on a box the second comes here.
  if (!BasculerSous(*evenement)) QTreeView::mouseDoubleClickEvent(evenement);
}

void ArbreVelmiras::mouseMoveEvent(QMouseEvent *evenement) {
  // A pressed mouse would drag the selection along, away from the record on display.
  if (evenement->buttons() == Qt::NoButton) QTreeView::mouseMoveEvent(evenement);
}

void ArbreVelmiras::keyPressEvent(QKeyEvent *evenement) {
  if (modele_.CochesMontrees() && evenement->key() == Qt::Key_Space) {
    if (currentIndex().isValid()) modele_.Basculer(currentIndex());
    return;
  }
  const QPersistentModelIndex avant = currentIndex();
  QTreeView::keyPressEvent(evenement);
  if (currentIndex().isValid() && currentIndex() != avant)
    emit NoeudClique(currentIndex(), Qt::LeftButton);
}
