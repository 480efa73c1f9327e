#include "maintenance/ModeleEcarts.h"

#include "directory/LibellesFiche.h"
#include "directory/Liste.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

QString Champs(const ChoixColonnes<Correspondant> &colonnes) {
  QStringList noms;
  for (const auto &[ordinal, libelle] : LibellesFiche())
    if (colonnes[ordinal]) noms.append(libelle.nom);
  return noms.isEmpty() ? QString() : u" : "_s + noms.join(u", ");
}

QString TexteEcart(const FicheEcartee &fiche) {
  switch (fiche.ecart) {
    case EcartFiche::Supprimee:
      return u"supprimé"_s;
    case EcartFiche::Ajoutee:
      return u"ajouté"_s;
    case EcartFiche::Modifiee:
      break;
  }
  return u"modifié"_s + Champs(fiche.colonnes);
}

}  // namespace

void ModeleEcarts::Montrer(QList<FicheEcartee> fiches) {
  beginResetModel();
  fiches_ = std::move(fiches);
  cochees_.clear();
  endResetModel();
  emit Coche();
}

QList<FicheEcartee> ModeleEcarts::Cochees() const {
  QList<FicheEcartee> cochees;
  std::ranges::copy_if(fiches_, std::back_inserter(cochees),
                       [this](const FicheEcartee &f) { return cochees_.contains(f.index); });
  return cochees;
}

void ModeleEcarts::CocherTout(bool coches) {
  cochees_.clear();
  for (const FicheEcartee &fiche : fiches_)
    if (coches && EstReprenable(fiche)) cochees_.insert(fiche.index);
  if (!fiches_.isEmpty())
    emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {Qt::CheckStateRole});
  emit Coche();
}

int ModeleEcarts::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : static_cast<int>(fiches_.size());
}

QVariant ModeleEcarts::data(const QModelIndex &index, int role) const {
  const FicheEcartee &fiche = fiches_[index.row()];
  const bool nom = index.column() == 0;
  if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
    return nom ? NomListe(fiche.nom) : TexteEcart(fiche);
  if (role == Qt::AccessibleTextRole && nom)
    return u"%1, %2"_s.arg(NomListe(fiche.nom), TexteEcart(fiche));
  if (role == Qt::CheckStateRole && nom && EstReprenable(fiche))
    return cochees_.contains(fiche.index) ? Qt::Checked : Qt::Unchecked;
  return {};
}

bool ModeleEcarts::setData(const QModelIndex &index, const QVariant &valeur, int role) {
  if (role != Qt::CheckStateRole) return false;
  const Cle cle = fiches_[index.row()].index;
  if (valeur.toInt() == Qt::Checked)
    cochees_.insert(cle);
  else
    cochees_.remove(cle);
  emit dataChanged(index, index, {role});
  emit Coche();
  return true;
}

QVariant ModeleEcarts::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return section == 0 ? u"Nom"_s : u"Depuis cette sauvegarde"_s;
}

Qt::ItemFlags ModeleEcarts::flags(const QModelIndex &index) const {
  const bool coche = index.column() == 0 && EstReprenable(fiches_[index.row()]);
  const Qt::ItemFlags base = QAbstractTableModel::flags(index);
  return coche ? base | Qt::ItemIsUserCheckable : base;
}

bool ModeleEcarts::EstReprenable(const FicheEcartee &fiche) {
  return fiche.ecart != EcartFiche::Ajoutee;
}
