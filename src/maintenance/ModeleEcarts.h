#pragma once

#include "storage/Restauration.h"

#include <QAbstractTableModel>
#include <QSet>

/// What has become of the correspondents since a copy, with a box for those that can be taken back
/// from it.
class ModeleEcarts : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  void Montrer(QList<FicheEcartee> fiches);
  /// In the order of the list.
  QList<FicheEcartee> Cochees() const;
  void CocherTout(bool coches);

  int rowCount(const QModelIndex &parent = {}) const override;
  int columnCount(const QModelIndex &) const override { return 2; }
  QVariant data(const QModelIndex &index, int role) const override;
  bool setData(const QModelIndex &index, const QVariant &valeur, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex &index) const override;

 signals:
  void Coche();

 private:
  static bool EstReprenable(const FicheEcartee &fiche);

  QList<FicheEcartee> fiches_;
  QSet<Cle> cochees_;
};
