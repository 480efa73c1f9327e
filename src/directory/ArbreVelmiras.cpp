#include "directory/ArbreVelmiras.h"

#include "ui/Theme.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTextLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// Lays a text out in one line, with what has been found in it in bold.
QTextLine MettreEnLigne(QTextLayout &disposition, const QString &texte,
                        const QList<PrecisionListe::Passage> &trouves, const QColor &encre) {
  QTextCharFormat gras;
  gras.setFontWeight(QFont::Bold);
  gras.setForeground(encre);
  QList<QTextLayout::FormatRange> formats;
  for (const auto &[debut, longueur] : trouves)
    if (debut < texte.size())
      formats.append({static_cast<int>(debut),
                      static_cast<int>(std::min(longueur, texte.size() - debut)), gras});
  disposition.setText(texte);
  disposition.setFormats(formats);
  disposition.beginLayout();
  const QTextLine ligne = disposition.createLine();
  disposition.endLayout();
  return ligne;
}

/// Paints what is said below a name, and the tick of the root in the colours of the tree: in the
/// colour of its text it would be white in a white box.
class DessinNoeud : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter *dessin, const QStyleOptionViewItem &option,
             const QModelIndex &noeud) const override {
    QStyleOptionViewItem vue = option;
    initStyleOption(&vue, noeud);
    const auto precision = noeud.data(kPrecision).value<PrecisionListe>();
    if (!precision.texte.isEmpty()) vue.text += u"\u2028 "_s;  // the second line is painted here
    const QStyle *style = option.widget->style();
    style->drawControl(QStyle::CE_ItemViewItem, &vue, dessin, option.widget);
    if (!precision.texte.isEmpty()) DessinerPrecision(dessin, vue, precision);
    if (!noeud.data(Qt::ForegroundRole).isValid()) return;
    if (!vue.features.testFlag(QStyleOptionViewItem::HasCheckIndicator)) return;
    vue.rect = style->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &vue, option.widget);
    vue.palette = option.palette;
    vue.state.setFlag(QStyle::State_HasFocus, false);
    vue.state |= vue.checkState == Qt::Checked ? QStyle::State_On : QStyle::State_Off;
    style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &vue, dessin, option.widget);
  }

  QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &noeud) const override {
    QSize taille = QStyledItemDelegate::sizeHint(option, noeud);
    const int ligne = option.fontMetrics.height();
    if (noeud.data(kPrecision).isValid()) taille.rheight() += ligne + ligne / 3;
    return taille;
  }

 private:
  static void DessinerPrecision(QPainter *dessin, const QStyleOptionViewItem &vue,
                                const PrecisionListe &precision) {
    const QStyle *style = vue.widget->style();
    QRect place = style->subElementRect(QStyle::SE_ItemViewItemText, &vue, vue.widget);
    const int marge = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &vue, vue.widget) + 1;
    place.adjust(marge, place.height() / 2, -marge, 0);

    const bool choisi = vue.state.testFlag(QStyle::State_Selected);
    const bool colore = vue.backgroundBrush.style() != Qt::NoBrush;
    const auto groupe =
        vue.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const QColor encre =
        vue.palette.color(groupe, choisi ? QPalette::HighlightedText : QPalette::Text);
    const QColor discrete = EncreDiscrete(encre, vue.palette.color(groupe, QPalette::Base));

    QTextLayout disposition({}, vue.font, vue.widget);
    QTextLine ligne = MettreEnLigne(disposition, precision.texte, precision.trouves, encre);
    const QString points = u"…"_s;
    if (ligne.naturalTextWidth() > place.width()) {
      const int fin = ligne.xToCursor(place.width() - vue.fontMetrics.horizontalAdvance(points),
                                      QTextLine::CursorOnCharacter);
      ligne =
          MettreEnLigne(disposition, precision.texte.left(fin) + points, precision.trouves, encre);
    }
    dessin->save();
    dessin->setPen(choisi || colore ? encre : discrete);
    disposition.draw(dessin, place.topLeft());
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
