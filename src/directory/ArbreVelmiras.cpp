#include "directory/ArbreVelmiras.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace {

/// A colour between the two, nearer to the first, which keeps its contrast.
QColor Discrete(const QColor &texte, const QColor &fond) {
  const auto entre = [](int un, int autre) { return (3 * un + autre) / 4; };
  return {entre(texte.red(), fond.red()), entre(texte.green(), fond.green()),
          entre(texte.blue(), fond.blue())};
}

/// Paints what is said beside a name, and the tick of the root in the colours of the tree: in the
/// colour of its text it would be white in a white box.
class DessinNoeud : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter *dessin, const QStyleOptionViewItem &option,
             const QModelIndex &noeud) const override {
    QStyledItemDelegate::paint(dessin, option, noeud);
    DessinerPrecision(dessin, option, noeud);
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

 private:
  void DessinerPrecision(QPainter *dessin, const QStyleOptionViewItem &option,
                         const QModelIndex &noeud) const {
    const QString precision = noeud.data(kPrecision).toString();
    if (precision.isEmpty()) return;
    QStyleOptionViewItem nom = option;
    initStyleOption(&nom, noeud);
    const QStyle *style = option.widget->style();
    QRect place = style->subElementRect(QStyle::SE_ItemViewItemText, &nom, option.widget);
    const int marge = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &nom, option.widget) + 1;
    place.adjust(marge + nom.fontMetrics.horizontalAdvance(nom.text), 0, -marge, 0);
    if (place.width() <= 0) return;

    const bool choisi = nom.state.testFlag(QStyle::State_Selected);
    const auto groupe =
        nom.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const QColor texte =
        nom.palette.color(groupe, choisi ? QPalette::HighlightedText : QPalette::Text);
    dessin->save();
    dessin->setFont(nom.font);
    dessin->setPen(choisi ? texte : Discrete(texte, nom.palette.color(groupe, QPalette::Base)));
    dessin->drawText(
        place, Qt::AlignVCenter | Qt::TextSingleLine,
        nom.fontMetrics.elidedText(u" – "_s + precision, Qt::ElideRight, place.width()));
    dessin->restore();
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

void ArbreVelmiras::Trouver(const QModelIndex &noeud) {
  setCurrentIndex(noeud);
  scrollTo(noeud, PositionAtCenter);
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
  if (evenement->key() == Qt::Key_Escape) {
    emit Abandonnee();
    return;
  }
  const QPersistentModelIndex avant = currentIndex();
  QTreeView::keyPressEvent(evenement);
  if (currentIndex().isValid() && currentIndex() != avant)
    emit NoeudClique(currentIndex(), Qt::LeftButton);
}
