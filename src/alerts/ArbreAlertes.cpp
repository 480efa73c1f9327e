#include "alerts/ArbreAlertes.h"

#include "storage/Noms.h"
#include "ui/Icones.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// Every node of the tree is one.
struct Element : QTreeWidgetItem {
  explicit Element(ArbreAlertes::Noeud lu) : QTreeWidgetItem({lu.texte}), noeud(std::move(lu)) {}

  ArbreAlertes::Noeud noeud;
};

QString TextePersonne(const PersonneAlerte &personne) {
  const QString nom = EnCapitales(personne.Nom);
  return personne.DDN.isEmpty() ? nom : nom + u"    (DDN : "_s + personne.DDN + u')';
}

QString TexteEvenement(const EvenementJoint &joint) {
  QString date = joint.evenement.Date;
  if (joint.evenement.Annuel) date.chop(5);  // its year
  return joint.Type_alerte + u" - "_s + date;
}

ArbreAlertes::Noeud Lu(const QTreeWidgetItem &element) {
  return static_cast<const Element &>(element).noeud;
}

ArbreAlertes::LaCible Cible(const ArbreAlertes::Noeud &noeud) {
  if (const auto *personne = noeud.Personne()) return {true, personne->ID};
  return {false, noeud.Evenement()->evenement.ID};
}

void Cocher(QTreeWidgetItem &noeud, bool cases) {
  noeud.setData(0, Qt::CheckStateRole, cases ? QVariant(Qt::Unchecked) : QVariant());
}

}  // namespace

ArbreAlertes::ArbreAlertes(QWidget *parent) : QTreeWidget(parent) {
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setExpandsOnDoubleClick(false);
  setEditTriggers(NoEditTriggers);
  setSelectionMode(SingleSelection);
}

void ArbreAlertes::Montrer(const QList<PersonneEvenements> &personnes, bool seulementAlertes) {
  const QIcon icone = Icone(u"appointment-reminder");
  QList<QTreeWidgetItem *> noeuds;
  for (const auto &[personne, evenements] : personnes) {
    if (seulementAlertes && evenements.isEmpty()) continue;
    noeuds.append(new Element({TextePersonne(personne), personne}));
    for (const EvenementJoint &joint : evenements) {
      auto *noeud = new Element({TexteEvenement(joint), joint});
      noeud->setIcon(0, icone);
      noeuds.last()->addChild(noeud);
    }
  }
  Remplacer(noeuds);
}

void ArbreAlertes::MontrerSupprimees(const QList<PersonneAlerte> &personnes) {
  QList<QTreeWidgetItem *> noeuds;
  for (const PersonneAlerte &personne : personnes)
    noeuds.append(new Element({EnCapitales(personne.Nom), personne}));
  Remplacer(noeuds);
}

void ArbreAlertes::Remplacer(const QList<QTreeWidgetItem *> &noeuds) {
  const int place = verticalScrollBar()->value();
  const QTreeWidgetItem *element = itemAt(0, 0);
  const auto haut = element != nullptr ? std::optional(Cible(Lu(*element))) : std::nullopt;
  clear();
  addTopLevelItems(noeuds);
  expandAll();
  doItemsLayout();
  verticalScrollBar()->setValue(place);
  if (QTreeWidgetItem *reste = haut ? Trouver(*haut) : nullptr) scrollToItem(reste, PositionAtTop);
  if (cases_) MettreCases(true);
}

void ArbreAlertes::MettreCases(bool cases) {
  cases_ = cases;
  for (QTreeWidgetItem *noeud : Tous()) Cocher(*noeud, cases);
}

QList<QTreeWidgetItem *> ArbreAlertes::Tous() const {
  QList<QTreeWidgetItem *> noeuds;
  for (QTreeWidgetItemIterator i(const_cast<ArbreAlertes *>(this)); *i != nullptr; ++i)
    noeuds.append(*i);
  return noeuds;
}

QList<ArbreAlertes::Noeud> ArbreAlertes::Coches() const {
  QList<Noeud> coches;
  for (const QTreeWidgetItem *noeud : Tous())
    if (cases_ && noeud->checkState(0) == Qt::Checked) coches.append(Lu(*noeud));
  return coches;
}

std::optional<ArbreAlertes::Noeud> ArbreAlertes::Selection() const {
  const auto choisis = selectedItems();
  if (choisis.isEmpty()) return std::nullopt;
  return Lu(*choisis.constFirst());
}

std::optional<qsizetype> ArbreAlertes::Rang() const {
  const auto choisis = selectedItems();
  if (choisis.isEmpty()) return std::nullopt;
  return Tous().indexOf(choisis.constFirst());
}

void ArbreAlertes::Retrouver(const Noeud &noeud) {
  QTreeWidgetItem *trouve = Trouver(Cible(noeud));
  if (trouve == nullptr) return;
  const int place = verticalScrollBar()->value();  // the user may be looking elsewhere
  setCurrentItem(trouve);
  verticalScrollBar()->setValue(place);
}

QTreeWidgetItem *ArbreAlertes::Trouver(const LaCible &cible) const {
  const auto noeuds = Tous();
  const auto trouve = std::ranges::find(
      noeuds, cible, [](const QTreeWidgetItem *element) { return Cible(Lu(*element)); });
  return trouve == noeuds.end() ? nullptr : *trouve;
}

void ArbreAlertes::Selectionner(qsizetype rang) {
  const auto noeuds = Tous();
  if (rang >= 0 && rang < noeuds.size()) setCurrentItem(noeuds[rang]);
}

void ArbreAlertes::Cliquer(QTreeWidgetItem *noeud) {
  if (cases_)
    noeud->setCheckState(0, noeud->checkState(0) == Qt::Checked ? Qt::Unchecked : Qt::Checked);
  else
    emit NoeudClique(Lu(*noeud));
}

void ArbreAlertes::mousePressEvent(QMouseEvent *evenement) {
  const QPoint place = evenement->position().toPoint();
  QTreeWidgetItem *noeud = itemAt(place);
  const bool surNoeud = noeud != nullptr && visualItemRect(noeud).contains(place);
  if (surNoeud && cases_)
    setCurrentItem(noeud);  // the tree itself would tick a second time
  else
    QTreeWidget::mousePressEvent(evenement);
  if (!surNoeud) return;
  Cliquer(noeud);
  if (!cases_ && evenement->button() == Qt::RightButton)
    emit MenuDemande(evenement->globalPosition().toPoint());
}

void ArbreAlertes::mouseMoveEvent(QMouseEvent *evenement) {
  // A pressed mouse would drag the selection along, away from the event on display.
  if (evenement->buttons() == Qt::NoButton) QTreeWidget::mouseMoveEvent(evenement);
}

void ArbreAlertes::mouseReleaseEvent(QMouseEvent *evenement) {
  if (!cases_) QTreeWidget::mouseReleaseEvent(evenement);
}

void ArbreAlertes::mouseDoubleClickEvent(QMouseEvent *evenement) {
  if (cases_)
    mousePressEvent(evenement);
  else
    QTreeWidget::mouseDoubleClickEvent(evenement);
}

void ArbreAlertes::keyPressEvent(QKeyEvent *evenement) {
  const QTreeWidgetItem *avant = currentItem();
  QTreeWidget::keyPressEvent(evenement);
  const bool espace = evenement->key() == Qt::Key_Space;
  if (!cases_ && currentItem() != nullptr && (currentItem() != avant || espace))
    Cliquer(currentItem());
}

void ArbreAlertes::contextMenuEvent(QContextMenuEvent *evenement) {
  if (evenement->reason() != QContextMenuEvent::Keyboard || cases_ || currentItem() == nullptr)
    return;
  setCurrentItem(currentItem());
  Cliquer(currentItem());
  if (currentItem() != nullptr)
    emit MenuDemande(viewport()->mapToGlobal(visualItemRect(currentItem()).bottomLeft()));
}
