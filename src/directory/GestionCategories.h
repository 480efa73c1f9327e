#pragma once

#include "directory/Categories.h"
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
  /// been swept, with what the sweep makes of a category string.
  void Relier(Boites &boites, Horloge &horloge, Base &base,
              std::function<void(const RegleCategories &)> changees);

  /// Marks the categories of a record.
  void Montrer(const QString &categories);
  /// Those that were shown, as the user's own renamings and deletions have left them since.
  const QString &Montrees() const { return montrees_; }
  /// The marked ones as a category string: the one that was shown while no mark has been changed.
  QString Marquees() const;

 protected:
  /// Enter in the combo records the new category: the editor is not closed over it. A letter in the
  /// list only goes to the category that begins so.
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  bool AllerA(const QString &lettre);
  void Remplir();
  void RemplirCombo(const QStringList &categories);
  void Completer(const QString &texte);
  void Enregistrer();
  void ModifierOuSupprimer();
  void Supprimer(const QString &nom);
  void Renommer(const QString &nom);
  /// Gives the category strings that hold a name the value that a rule makes of them, also those of
  /// the record that is being edited. `genre` names the command.
  void Balayer(const QString &genre, const QString &nom, const RegleCategories &regle);
  /// The category in the list; null where it is not.
  QListWidgetItem *Listee(const QString &nom) const;
  void Marquer(const QString &categories);

  std::unique_ptr<Ui::GestionCategories> ui_;
  Boites *boites_ = nullptr;
  Base *base_ = nullptr;
  std::function<void(const RegleCategories &)> changees_;
  QString montrees_;
};
