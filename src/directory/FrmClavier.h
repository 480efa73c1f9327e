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

  /// The letter that was chosen, a capital; nothing when the list is to stay as it is.
  std::optional<QChar> Lettre() const { return lettre_; }

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;

 private:
  void AjouterTouche(const QString &texte, const QString &nom, std::optional<QChar> lettre);
  void Choisir(std::optional<QChar> lettre);

  std::unique_ptr<Ui::FrmClavier> ui_;
  std::optional<QChar> lettre_;
};
