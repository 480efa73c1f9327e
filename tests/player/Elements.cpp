#include "player/Elements.h"

#include "player/Echec.h"

#include <QComboBox>
#include <QListView>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

bool EstCache(const QAbstractItemView *vue, const QModelIndex &element) {
  if (const auto *arbre = qobject_cast<const QTreeView *>(vue))
    return arbre->isRowHidden(element.row(), element.parent());
  if (const auto *liste = qobject_cast<const QListView *>(vue))
    return liste->isRowHidden(element.row());
  return false;
}

void Parcourir(const QAbstractItemView *vue, const QModelIndex &parent, int colonne,
               QModelIndexList &elements) {
  const QAbstractItemModel *modele = vue->model();
  for (int i = 0; i < modele->rowCount(parent); ++i) {
    const QModelIndex element = modele->index(i, colonne, parent);
    if (EstCache(vue, element)) continue;
    elements.append(element);
    Parcourir(vue, modele->index(i, 0, parent), colonne, elements);
  }
}

}  // namespace

QAbstractItemView *Vue(const Controle &controle) {
  auto *vue = controle.En<QAbstractItemView>();
  Exiger(vue != nullptr, controle.Sinon(u"a list or a tree"_s));
  return vue;
}

QModelIndexList Elements(const Controle &controle) {
  QModelIndexList elements;
  if (const auto *combo = controle.En<QComboBox>()) {
    for (int i = 0; i < combo->count(); ++i)
      elements.append(combo->model()->index(i, combo->modelColumn(), combo->rootModelIndex()));
  } else {
    const QAbstractItemView *vue = Vue(controle);
    const auto *liste = qobject_cast<const QListView *>(vue);
    if (vue->model() != nullptr)
      Parcourir(vue, vue->rootIndex(), liste ? liste->modelColumn() : 0, elements);
  }
  return elements;
}

QStringList Textes(const QModelIndexList &elements) {
  QStringList textes;
  for (const QModelIndex &element : elements) textes.append(element.data().toString());
  return textes;
}

QModelIndex Element(const Controle &controle, const Mot &mot) {
  const QModelIndexList elements = Elements(controle);
  const auto indice = mot.Est(u"racine") ? std::optional(0) : mot.Indice();
  if (indice) {
    Exiger(*indice >= 0 && *indice < elements.size(),
           u"%1: item %2 expected, %3 items found"_s.arg(controle.nom, mot.texte)
               .arg(elements.size()));
    return elements[*indice];
  }
  int rang = mot.rang;
  for (const QModelIndex &element : elements)
    if (element.data().toString() == mot.texte && --rang == 0) return element;
  throw Echec{u"%1: item \"%2\"%3 expected, \"%4\" found"_s.arg(
      controle.nom, mot.texte, mot.rang > 1 ? u"#%1"_s.arg(mot.rang) : u""_s,
      Textes(elements).join(u"\" \""_s))};
}

QModelIndexList Selection(const Controle &controle) {
  if (const auto *combo = controle.En<QComboBox>()) {
    if (combo->currentIndex() < 0) return {};
    return {Elements(controle).at(combo->currentIndex())};
  }
  const QItemSelectionModel *selection = Vue(controle)->selectionModel();
  QModelIndexList choisis;
  for (const QModelIndex &element : Elements(controle))
    if (selection != nullptr && selection->isSelected(element)) choisis.append(element);
  return choisis;
}

bool EstCoche(const QModelIndex &element) {
  const QVariant etat = element.data(Qt::CheckStateRole);
  Exiger(etat.isValid(),
         u"a box at the item \"%1\" expected, none found"_s.arg(element.data().toString()));
  return etat.value<Qt::CheckState>() == Qt::Checked;
}
