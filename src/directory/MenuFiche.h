#pragma once

#include <QList>
#include <QObject>

class ArbreVelmiras;
class QAction;
class QKeyEvent;
class QMenu;

/// When the items of the menu "Fiche" are there, and where its keys hold: those of the menu in the
/// text fields of the window too, Enter and the key that deletes in the list alone.
class MenuFiche : public QObject {
  Q_OBJECT

 public:
  struct Items {
    QMenu &menu;
    QAction *mnuSupprimer;
    QList<QAction *> deFiche;  ///< there while a record is selected
    QList<QAction *> deListe;  ///< there while anybody is listed
  };

  /// Belongs to the window, whose text fields have been made; `arbre` has got its model.
  MenuFiche(const Items &items, ArbreVelmiras &arbre, QWidget &fenetre);

 signals:
  /// Enter has been pressed in the list.
  void ModificationDemandee();

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void Brancher();
  void MettreAJour();
  /// Whether it is the key of an item, wherever the focus is.
  bool EstDuMenu(const QKeyEvent &touche) const;
  /// Whether it is an Enter for the list, announced there before.
  bool EstEntree(const QKeyEvent &touche, bool annonce);

  Items items_;
  ArbreVelmiras &arbre_;
  bool entreeAnnoncee_ = false;  ///< Enter is pressed in the list, and comes next
};
