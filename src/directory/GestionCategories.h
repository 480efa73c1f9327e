#pragma once

#include "platform/Boites.h"
#include "storage/Tables.h"

#include <QObject>

#include <functional>

class QComboBox;
class QListWidget;
class QPushButton;

/// The categories in the editor: the list in which those of the record are marked, and the combo in
/// which one is typed or chosen to be created, renamed or deleted.
class GestionCategories : public QObject {
  Q_OBJECT

 public:
  struct Controles {
    QComboBox *categorie;
    QListWidget *liste;
    QPushButton *enregistrer, *modifier;
  };

  /// `changees` runs when the categories of the table have changed.
  GestionCategories(Boites &boites, Base &base, const Controles &controles,
                    std::function<void()> changees);

  /// Marks the categories of a record.
  void Marquer(const QString &categories);
  /// The marked ones as a category string.
  QString Marquees() const;

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void Remplir();
  void RemplirCombo(const QStringList &categories);
  void Completer(const QString &texte);
  void Enregistrer();
  void ModifierOuSupprimer();
  void Supprimer(const QString &nom);
  void Renommer(const QString &nom);
  /// Gives the category strings that hold a name the value that a rule makes of them. The marks of
  /// the record that is being edited stay where the categories stay.
  void Balayer(const QString &nom, const std::function<QString(const QString &)> &regle);
  bool Selectionner(const QString &nom);

  Boites &boites_;
  Base &base_;
  Controles c_;
  std::function<void()> changees_;
  QString saisie_;  ///< what was typed before, without its completion
};
