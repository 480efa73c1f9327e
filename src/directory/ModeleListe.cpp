#include "directory/ModeleListe.h"

#include "ui/Icones.h"

#include <QBrush>
#include <QFont>

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
  endResetModel();
}

void ModeleListe::Remplir(const QString &titre, std::vector<NoeudListe> noeuds) {
  beginResetModel();
  titre_ = titre;
  noeuds_ = std::move(noeuds);
  endResetModel();
}

void ModeleListe::Retirer(const QModelIndex &enfant) {
  beginRemoveRows(enfant.parent(), enfant.row(), enfant.row());
  noeuds_.erase(noeuds_.begin() + enfant.row());
  endRemoveRows();
}

QModelIndex ModeleListe::Inserer(NoeudListe noeud) {
  const auto place = PlaceDansListe(noeuds_, noeud.texte);
  const auto rang = static_cast<int>(place - noeuds_.begin());
  beginInsertRows(Racine(), rang, rang);
  noeuds_.insert(place, std::move(noeud));
  endInsertRows();
  return index(rang, 0, Racine());
}

QModelIndex ModeleListe::Enfant(Cle cle) const {
  for (std::size_t i = 0; i < noeuds_.size(); ++i)
    if (noeuds_[i].index == cle) return index(static_cast<int>(i), 0, Racine());
  return {};
}

QModelIndex ModeleListe::Commencant(const QString &debut) const {
  for (std::size_t i = 0; i < noeuds_.size(); ++i) {
    QStringView tete = QStringView(noeuds_[i].texte).left(debut.size());
    while (tete.endsWith(u' ')) tete.chop(1);
    if (tete.compare(debut, Qt::CaseInsensitive) == 0)
      return index(static_cast<int>(i), 0, Racine());
  }
  return {};
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
      return QString::number(noeud.index);
    default:
      return {};
  }
}

QVariant ModeleListe::DonneeRacine(int role) const {
  switch (role) {
    case Qt::DisplayRole:
      return *titre_;
    case Qt::DecorationRole:
      return iconeRacine_;
    case Qt::UserRole:
      return QString();
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
      return {};
  }
}
