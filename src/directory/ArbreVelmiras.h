#pragma once

#include "directory/ModeleListe.h"

#include <QTreeView>

/// The list of correspondents. A node is clicked by the mouse, by moving to it with the keyboard,
/// or by a command.
class ArbreVelmiras : public QTreeView {
  Q_OBJECT

 public:
  explicit ArbreVelmiras(QWidget *parent = nullptr);

  ModeleListe &Modele() { return modele_; }

  void Remplir(const QString &titre, std::vector<NoeudListe> noeuds);

  /// The selected node; invalid when there is none.
  QModelIndex Selection() const;
  void SelectionnerEtCliquer(const QModelIndex &noeud);
  /// Clicks the selected node again; without one nothing happens.
  void CliquerSelection();

 signals:
  void NoeudClique(const QModelIndex &noeud, Qt::MouseButton bouton);

 protected:
  void mousePressEvent(QMouseEvent *evenement) override;
  void mouseMoveEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;

 private:
  ModeleListe modele_;
};
