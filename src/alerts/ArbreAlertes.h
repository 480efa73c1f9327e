#pragma once

#include "storage/TablesAlertes.h"

#include <QTreeWidget>

#include <optional>
#include <utility>
#include <variant>

/// The people of the alerts with their events below them. A node is clicked by the mouse or by
/// moving to it with the keyboard. While the boxes are shown a click ticks or unticks, and does
/// nothing else.
class ArbreAlertes : public QTreeWidget {
  Q_OBJECT

 public:
  /// A person, or an event with what is joined to it.
  struct Noeud {
    QString texte;  ///< as the tree shows it
    std::variant<PersonneAlerte, EvenementJoint> valeur;

    /// Null for an event.
    const PersonneAlerte *Personne() const { return std::get_if<PersonneAlerte>(&valeur); }
    /// Null for a person.
    const EvenementJoint *Evenement() const { return std::get_if<EvenementJoint>(&valeur); }
  };

  /// What a node stands for: a person or not, and the key.
  using LaCible = std::pair<bool, Cle>;

  explicit ArbreAlertes(QWidget *parent = nullptr);

  /// `seulementAlertes` leaves out who has no event. The node at the top stays there.
  void Montrer(const QList<PersonneEvenements> &personnes, bool seulementAlertes);
  /// Deleted people, without their birth dates.
  void MontrerSupprimees(const QList<PersonneAlerte> &personnes);

  /// Shows the boxes, unticked, or hides them.
  void MettreCases(bool cases);
  QList<Noeud> Coches() const;

  std::optional<Noeud> Selection() const;
  /// Place of the selected node among all of them, from 0.
  std::optional<qsizetype> Rang() const;
  /// Selects the node of the same person or event without a click, where the tree has it, and does
  /// not scroll to it.
  void Retrouver(const Noeud &noeud);
  /// Selects a node by its place, without a click. A place that the tree lacks changes nothing.
  void Selectionner(qsizetype rang);

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
  /// Null where the tree has none.
  QTreeWidgetItem *Trouver(const LaCible &cible) const;

  bool cases_ = false;
};
