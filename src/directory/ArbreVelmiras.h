#pragma once

#include "directory/ModeleListe.h"

#include <QTreeView>

/// The list of correspondents. A node is clicked by the mouse, by moving to it with the keyboard,
/// or by a command. While boxes are shown a click of the left button, or the space bar, inverts the
/// node's box instead: selection and record on display stay as they are.
class ArbreVelmiras : public QTreeView {
  Q_OBJECT

 public:
  explicit ArbreVelmiras(QWidget *parent = nullptr);

  ModeleListe &Modele() { return modele_; }

  void Remplir(const QString &titre, std::vector<NoeudListe> noeuds);
  /// The list as it is now: of those who are still listed the selected one, the ticks and who
  /// stands at the top stay; the root is selected in the place of one who has gone. No node is
  /// clicked.
  void Accorder(const QString &titre, std::vector<NoeudListe> noeuds);

  /// The selected node; invalid when there is none.
  QModelIndex Selection() const;
  /// Selects the node of a record, the root for 0, and clicks nothing.
  void Selectionner(Cle index);
  void SelectionnerEtCliquer(const QModelIndex &noeud);
  /// The same, and the node stands in the middle.
  void Trouver(const QModelIndex &noeud);
  /// Selects and clicks the first record; without one nothing happens.
  void CliquerPremier();
  /// Clicks the selected node again; without one nothing happens.
  void CliquerSelection();

  void keyboardSearch(const QString &texte) override { emit Frappee(texte); }

  /// Boxes beside the nodes, see `ModeleListe`.
  void MontrerCoches(bool montrees) { modele_.MontrerCoches(montrees); }
  void CocherTous(bool coches) { modele_.CocherTous(coches); }
  QList<Cle> Coches() const { return modele_.Coches(); }

 signals:
  void NoeudClique(const QModelIndex &noeud, Qt::MouseButton bouton);
  /// A letter has been typed: it is the search's.
  void Frappee(const QString &texte);
  void Abandonnee();

 protected:
  void mousePressEvent(QMouseEvent *evenement) override;
  void mouseDoubleClickEvent(QMouseEvent *evenement) override;
  void mouseMoveEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;
  /// Nothing that the user does leaves no node selected: the record on display is the selected one.
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &noeud,
                                                       const QEvent *evenement) const override;

 private:
  bool BasculerSous(const QMouseEvent &evenement);
  QList<Cle> Visibles() const;

  ModeleListe modele_;
};
