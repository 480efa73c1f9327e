#pragma once

#include "platform/Boites.h"
#include "ui/ComboASuppression.h"

#include <QLineEdit>

/// The list of titles. Choosing one puts it at the front of a field, and so does typing one and
/// leaving; one that is typed is added when the list is opened; the Delete key takes the one that
/// is shown off the list.
class ComboTitres : public ComboASuppression {
  Q_OBJECT

 public:
  using ComboASuppression::ComboASuppression;

  /// Reads the titles of the application folder. `champ` takes the title that is chosen.
  void Relier(Boites &boites, const QString &appPath, QLineEdit *champ);

  /// Those of the list.
  QStringList Titres() const;

  /// Puts a title that was typed and not yet chosen at the front of the field; the blank of one
  /// that no name has come behind goes.
  void Finir();

  /// Stays shut where the typed title cannot be added: the user is told, and may write it
  /// otherwise.
  void showPopup() override;

 protected:
  void focusOutEvent(QFocusEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;
  bool focusNextPrevChild(bool suivant) override;

 private:
  /// Where a title stands in the list, whatever its blanks; -1 where it does not.
  int Rang(const QString &titre) const;
  /// A title was typed, and neither chosen nor put.
  bool EnAttente() const;
  void Poser(const QString &titre);
  void Conclure();
  /// The name is typed behind the title.
  void AllerAuChamp();
  /// Takes the title as if it had been chosen, and goes on with the name; false where none waits.
  bool ConclureEtAvancer();
  void Choisir(int index);
  /// False where the title is refused.
  bool AjouterSaisie();
  /// The list opens on a title that was typed: another one would be taken in its place.
  void DesignerSaisie();
  void Effacer();

  Boites *boites_ = nullptr;
  QString appPath_;
  QLineEdit *champ_ = nullptr;
  QString pose_;  ///< the title that was put last, which need not be in the list
};
