#pragma once

#include "directory/Liste.h"

#include <QAbstractItemModel>
#include <QIcon>
#include <QSet>

#include <functional>
#include <optional>
#include <vector>

/// What is said below the name of a node, a `PrecisionListe`; see `ModeleListe::Preciser`.
constexpr int kPrecision = Qt::UserRole + 1;

/// The tree of the list: a root that bears the category, and one child a correspondent.
/// `Qt::UserRole` is the key of a node's record; the root has none.
class ModeleListe : public QAbstractItemModel {
  Q_OBJECT

 public:
  explicit ModeleListe(QObject *parent = nullptr);

  /// From now on `precision` tells of a record what is said below its name, of 0 the same of the
  /// root: nothing, as a rule. It is asked for what is looked at only. Rows are as high as the root
  /// needs at the next filling: where it says something of a record it does so of the root.
  void Preciser(std::function<PrecisionListe(Cle)> precision) { precision_ = std::move(precision); }

  void Vider();
  /// `titre` is the root's text.
  void Remplir(const QString &titre, std::vector<NoeudListe> noeuds);
  /// The same; the boxes of those who stay keep their ticks.
  void Accorder(const QString &titre, std::vector<NoeudListe> noeuds);
  /// Whether it shows just this.
  bool Montre(const QString &titre, const std::vector<NoeudListe> &noeuds) const {
    return titre_ == titre && noeuds_ == noeuds;
  }

  /// Takes a child off.
  void Retirer(const QModelIndex &enfant);

  /// Puts a child in its place in the order of the list.
  void Inserer(NoeudListe noeud);

  /// Puts a child that has been changed in its new place; its box keeps its tick.
  void Remplacer(NoeudListe noeud);

  /// The child of a record; invalid when it is not listed.
  QModelIndex Enfant(Cle index) const;

  /// The first child whose name begins so, see `directory/Liste.h`; invalid when there is none.
  QModelIndex Commencant(const QString &debut) const;

  /// Shows a box beside each node, or takes the boxes away. A node that comes in has its box empty.
  void MontrerCoches(bool montrees);
  bool CochesMontrees() const { return cochesMontrees_; }
  /// Ticks or clears all boxes, the root's too.
  void CocherTous(bool coches);
  /// Inverts a box; the root's carries those of all the children along.
  void Basculer(const QModelIndex &noeud);
  /// The records whose boxes are ticked, in the order of the list.
  QList<Cle> Coches() const;

  /// The root; invalid while the tree is empty.
  QModelIndex Racine() const;
  const std::vector<NoeudListe> &Noeuds() const { return noeuds_; }
  qsizetype NombreEnfants() const { return static_cast<qsizetype>(noeuds_.size()); }

  QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
  QModelIndex parent(const QModelIndex &enfant) const override;
  int rowCount(const QModelIndex &parent = {}) const override;
  int columnCount(const QModelIndex &parent = {}) const override;
  QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

 private:
  QVariant DonneeRacine(int role) const;
  QVariant EtatCoche(bool cochee) const;
  void RedessinerCoches();
  /// A role that tells what is said below the name of a record, or of the root by 0.
  QVariant DonneePrecision(const QString &nom, Cle index, int role) const;

  std::function<PrecisionListe(Cle)> precision_;
  std::optional<QString> titre_;
  std::vector<NoeudListe> noeuds_;
  QIcon iconeRacine_, iconeNoeud_;
  bool cochesMontrees_ = false, racineCochee_ = false;
  QSet<Cle> coches_;
};

/// What a node shows.
inline QString Texte(const QModelIndex &noeud) {
  return noeud.data().toString();
}

/// The key of a node's record; 0 for the root, and for no node.
inline Cle Index(const QModelIndex &noeud) {
  return noeud.data(Qt::UserRole).toLongLong();
}
