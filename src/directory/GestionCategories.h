#pragma once

#include "platform/Boites.h"
#include "storage/Tables.h"

#include <QWidget>

#include <functional>
#include <memory>

class Horloge;
class QListWidgetItem;

namespace Ui {
class GestionCategories;
}

/// The categories in the editor: the list in which those of the record are marked, and the combo in
/// which one is typed or chosen to be created, renamed or deleted.
class GestionCategories : public QWidget {
  Q_OBJECT

 public:
  explicit GestionCategories(QWidget *parent = nullptr);
  ~GestionCategories() override;

  /// Before anything else: reads the categories. `changees` runs when those of the table have
  /// changed.
  void Relier(Boites &boites, Horloge &horloge, Base &base, std::function<void()> changees);

  /// Marks the categories of a record.
  void Marquer(const QString &categories);
  /// The marked ones as a category string.
  QString Marquees() const;

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
  /// The category in the list; null where it is not.
  QListWidgetItem *Listee(const QString &nom) const;
  void Selectionner(const QString &nom);

  std::unique_ptr<Ui::GestionCategories> ui_;
  Boites *boites_ = nullptr;
  Base *base_ = nullptr;
  std::function<void()> changees_;
  QString saisie_;  ///< what was typed before, without its completion
};
