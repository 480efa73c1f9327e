#pragma once

#include "storage/TablesAlertes.h"

#include <QTreeWidget>

/// The people of the alerts with their events below them. A node is clicked by the mouse or by
/// moving to it with the keyboard. While the boxes are shown a click ticks or unticks, and does
/// nothing else.
///
/// The tag of a node is the key of its row, with "$" in front for a person.
class ArbreAlertes : public QTreeWidget {
  Q_OBJECT

 public:
  struct Noeud {
    bool personne = false;
    Cle cle = 0;
    QString texte;
  };

  explicit ArbreAlertes(QWidget *parent = nullptr);

  /// `seulementAlertes` leaves out who has no event.
  void Montrer(const QList<PersonneEvenements> &personnes, bool seulementAlertes);
  /// Deleted people; their tags are bare keys.
  void MontrerSupprimees(const QList<PersonneAlerte> &personnes);

  /// Shows the boxes, unticked, or hides them.
  void MettreCases(bool cases);
  QList<Noeud> Coches() const;

  std::optional<Noeud> Selection() const;
  /// Place of the selected node among all of them, from 0; -1 without one.
  int Rang() const;
  /// Selects without a click. A place that the tree lacks changes nothing.
  void Selectionner(int rang);

 signals:
  void NoeudClique(const ArbreAlertes::Noeud &noeud);
  /// Behind the click of the right button or by the key of the menu; on the screen.
  void MenuDemande(QPoint place);

 protected:
  void mousePressEvent(QMouseEvent *evenement) override;
  void mouseMoveEvent(QMouseEvent *evenement) override;
  void mouseReleaseEvent(QMouseEvent *evenement) override;
  void mouseDoubleClickEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;
  void contextMenuEvent(QContextMenuEvent *evenement) override;

 private:
  void Cliquer(QTreeWidgetItem *noeud);
  void Remplacer(const QList<QTreeWidgetItem *> &noeuds);
  QList<QTreeWidgetItem *> Tous() const;

  bool cases_ = false;
};
