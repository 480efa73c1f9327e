#include "directory/ArbreVelmiras.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>

namespace {

/// Paints the tick of the root in the colours of the tree: in the colour of its text it would be
/// white in a white box.
class DessinNoeud : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter *dessin, const QStyleOptionViewItem &option,
             const QModelIndex &noeud) const override {
    QStyledItemDelegate::paint(dessin, option, noeud);
    if (!noeud.data(Qt::ForegroundRole).isValid()) return;
    QStyleOptionViewItem coche = option;
    initStyleOption(&coche, noeud);
    if (!coche.features.testFlag(QStyleOptionViewItem::HasCheckIndicator)) return;
    const QStyle *style = option.widget->style();
    coche.rect =
        style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &coche, option.widget);
    coche.palette = option.palette;
    coche.state.setFlag(QStyle::State_HasFocus, false);
    coche.state |= coche.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &coche, dessin, option.widget);
  }
};

}  // namespace

ArbreVelmiras::ArbreVelmiras(QWidget *parent) : QTreeView(parent) {
  setModel(&modele_);
  setItemDelegate(new DessinNoeud(this));
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

/// The records in sight and those below them, from the top; none while the root is in sight.
QList<Cle> ArbreVelmiras::Visibles() const {
  QList<Cle> cles;
  const QModelIndex haut = indexAt({0, 0});
  if (haut.parent().isValid())
    for (QModelIndex noeud = haut; noeud.isValid(); noeud = noeud.siblingAtRow(noeud.row() + 1))
      cles.append(Index(noeud));
  return cles;
}

void ArbreVelmiras::Accorder(const QString &titre, std::vector<NoeudListe> noeuds) {
  if (modele_.Montre(titre, noeuds)) return;
  const QModelIndex choisi = Selection();
  const bool selection = choisi.isValid();
  const Cle index = Index(choisi);
  const QList<Cle> visibles = Visibles();
  const int gauche = horizontalScrollBar()->value();

  modele_.Accorder(titre, std::move(noeuds));
  expand(modele_.Racine());
  const QModelIndex reste = modele_.Enfant(index);
  if (selection) setCurrentIndex(reste.isValid() ? reste : modele_.Racine());
  scrollToTop();
  for (const Cle cle : visibles)
    if (const QModelIndex noeud = modele_.Enfant(cle); noeud.isValid()) {
      scrollTo(noeud, PositionAtTop);
      break;
    }
  horizontalScrollBar()->setValue(gauche);
}

void ArbreVelmiras::Selectionner(Cle index) {
  if (Index(Selection()) == index) return;
  const QModelIndex noeud = index == 0 ? modele_.Racine() : modele_.Enfant(index);
  setCurrentIndex(noeud);
  if (!noeud.isValid()) clearSelection();
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

QItemSelectionModel::SelectionFlags ArbreVelmiras::selectionCommand(const QModelIndex &noeud,
                                                                    const QEvent *) const {
  return noeud.isValid() ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::NoUpdate;
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
