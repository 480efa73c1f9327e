#pragma once

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class FrmClavier;
}

/// The keyboard of initials: a letter narrows the list to the names that begin with it.
class FrmClavier : public QDialog {
  Q_OBJECT

 public:
  /// Stands below the button that opens it.
  explicit FrmClavier(QWidget *bouton);
  ~FrmClavier() override;

  /// The letter that was chosen, a capital; empty for the whole list, nothing when the list is to
  /// stay as it is.
  const std::optional<QString> &Lettre() const { return lettre_; }

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;

 private:
  void AjouterTouche(const QString &texte, const QString &nom, const QString &lettre);
  void Choisir(const QString &lettre);

  std::unique_ptr<Ui::FrmClavier> ui_;
  std::optional<QString> lettre_;
  int cote_ = 0;  ///< of a key
};
