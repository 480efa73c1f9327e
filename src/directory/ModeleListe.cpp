#include "directory/ModeleListe.h"

#include "ui/Icones.h"

#include <QBrush>
#include <QFont>

using namespace Qt::StringLiterals;

namespace {

// What an index bears: the root is the only row without a parent.
constexpr quintptr kRacine = 0, kEnfant = 1;

}  // namespace

ModeleListe::ModeleListe(QObject *parent)
    : QAbstractItemModel(parent),
      iconeRacine_(Icone(u"x-office-address-book")),
      iconeNoeud_(Icone(u"user")) {}

void ModeleListe::Vider() {
  beginResetModel();
  titre_.reset();
  noeuds_.clear();
  coches_.clear();
  racineCochee_ = false;
  endResetModel();
}

void ModeleListe::Remplir(const QString &titre, std::vector<NoeudListe> noeuds) {
  coches_.clear();
  racineCochee_ = false;
  Accorder(titre, std::move(noeuds));
}

void ModeleListe::Accorder(const QString &titre, std::vector<NoeudListe> noeuds) {
  beginResetModel();
  titre_ = titre;
  noeuds_ = std::move(noeuds);
  const QList<Cle> restent = Coches();
  coches_ = {restent.cbegin(), restent.cend()};
  endResetModel();
}

void ModeleListe::Retirer(const QModelIndex &enfant) {
  beginRemoveRows(enfant.parent(), enfant.row(), enfant.row());
  const auto noeud = noeuds_.begin() + enfant.row();
  coches_.remove(noeud->index);
  noeuds_.erase(noeud);
  endRemoveRows();
}

void ModeleListe::Inserer(NoeudListe noeud) {
  const auto place = PlaceDansListe(noeuds_, noeud.texte);
  const auto rang = static_cast<int>(place - noeuds_.begin());
  beginInsertRows(Racine(), rang, rang);
  noeuds_.insert(place, std::move(noeud));
  endInsertRows();
}

void ModeleListe::Remplacer(NoeudListe noeud) {
  const bool coche = coches_.contains(noeud.index);
  const Cle cle = noeud.index;
  Retirer(Enfant(cle));
  if (coche) coches_.insert(cle);
  Inserer(std::move(noeud));
}

QModelIndex ModeleListe::Enfant(Cle cle) const {
  for (std::size_t i = 0; i < noeuds_.size(); ++i)
    if (noeuds_[i].index == cle) return index(static_cast<int>(i), 0, Racine());
  return {};
}

QModelIndex ModeleListe::Commencant(const QString &debut) const {
  const auto noeud = ::Commencant(noeuds_, debut);
  if (noeud == noeuds_.end()) return {};
  return index(static_cast<int>(noeud - noeuds_.begin()), 0, Racine());
}

void ModeleListe::MontrerCoches(bool montrees) {
  cochesMontrees_ = montrees;
  RedessinerCoches();
}

void ModeleListe::CocherTous(bool coches) {
  coches_.clear();
  racineCochee_ = coches;
  if (coches)
    for (const NoeudListe &noeud : noeuds_) coches_.insert(noeud.index);
  RedessinerCoches();
}

void ModeleListe::Basculer(const QModelIndex &noeud) {
  if (noeud == Racine()) {
    CocherTous(!racineCochee_);
    return;
  }
  const Cle cle = noeuds_[static_cast<std::size_t>(noeud.row())].index;
  if (!coches_.remove(cle)) coches_.insert(cle);
  emit dataChanged(noeud, noeud, {Qt::CheckStateRole});
}

QList<Cle> ModeleListe::Coches() const {
  QList<Cle> cles;
  for (const NoeudListe &noeud : noeuds_)
    if (coches_.contains(noeud.index)) cles.append(noeud.index);
  return cles;
}

void ModeleListe::RedessinerCoches() {
  const QModelIndex racine = Racine();
  if (!racine.isValid()) return;
  emit dataChanged(racine, racine, {Qt::CheckStateRole});
  if (const int enfants = rowCount(racine); enfants > 0)
    emit dataChanged(index(0, 0, racine), index(enfants - 1, 0, racine), {Qt::CheckStateRole});
}

QVariant ModeleListe::EtatCoche(bool cochee) const {
  if (!cochesMontrees_) return {};
  return QVariant::fromValue(cochee ? Qt::Checked : Qt::Unchecked);
}

QModelIndex ModeleListe::Racine() const {
  return index(0, 0);
}

QModelIndex ModeleListe::index(int row, int column, const QModelIndex &parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, parent.isValid() ? kEnfant : kRacine);
}

QModelIndex ModeleListe::parent(const QModelIndex &enfant) const {
  return enfant.isValid() && enfant.internalId() == kEnfant ? Racine() : QModelIndex();
}

int ModeleListe::rowCount(const QModelIndex &parent) const {
  if (!parent.isValid()) return titre_ ? 1 : 0;
  return parent.internalId() == kRacine ? static_cast<int>(noeuds_.size()) : 0;
}

int ModeleListe::columnCount(const QModelIndex &) const {
  return 1;
}

QVariant ModeleListe::data(const QModelIndex &index, int role) const {
  if (!index.isValid()) return {};
  if (index.internalId() == kRacine) return DonneeRacine(role);
  const NoeudListe &noeud = noeuds_[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return noeud.texte;
    case Qt::DecorationRole:
      return iconeNoeud_;
    case Qt::UserRole:
      return noeud.index;
    case Qt::CheckStateRole:
      return EtatCoche(coches_.contains(noeud.index));
    default:
      return DonneePrecision(noeud.texte, noeud.index, role);
  }
}

QVariant ModeleListe::DonneePrecision(const QString &nom, Cle index, int role) const {
  const bool dite = role == Qt::AccessibleTextRole || role == Qt::ToolTipRole;
  if (!precision_ || (!dite && role != kPrecision)) return {};
  const PrecisionListe precision = precision_(index);
  if (precision.texte.isEmpty()) return {};
  return dite ? QString(nom + u" – "_s + precision.texte) : QVariant::fromValue(precision);
}

QVariant ModeleListe::DonneeRacine(int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return *titre_;
    case Qt::DecorationRole:
      return iconeRacine_;
    case Qt::CheckStateRole:
      return EtatCoche(racineCochee_);
    case Qt::ForegroundRole:
      return QBrush(Qt::white);
    case Qt::BackgroundRole:
      return QBrush(QColor(48, 126, 173));
    case Qt::FontRole: {
      QFont gras;
      gras.setBold(true);
      return gras;
    }
    default:
      return DonneePrecision(*titre_, 0, role);
  }
}
