#pragma once

#include "platform/Boites.h"
#include "ui/ComboASuppression.h"

#include <QLineEdit>

/// The list of titles. Choosing one puts it at the front of a field; one that is typed is added
/// when the list is opened; the Delete key takes the one that is shown off the list.
class ComboTitres : public ComboASuppression {
  Q_OBJECT

 public:
  using ComboASuppression::ComboASuppression;

  /// Reads the titles of the application folder. `champ` takes the title that is chosen.
  void Relier(Boites &boites, const QString &appPath, QLineEdit *champ);

  void showPopup() override;

 private:
  QStringList Titres() const;
  void Choisir(int index);
  void AjouterSaisie();
  void Effacer();

  Boites *boites_ = nullptr;
  QString appPath_;
  QLineEdit *champ_ = nullptr;
};
