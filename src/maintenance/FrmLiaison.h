#pragma once

#include "platform/Boites.h"

#include <QDialog>

#include <array>
#include <memory>

class QRadioButton;

namespace Ui {
class FrmLiaison;
}

/// The choice of the text that stands between the pairs of digits of a telephone number.
class FrmLiaison : public QDialog {
  Q_OBJECT

 public:
  FrmLiaison(Boites &boites, const QString &separateur, QWidget *parent);
  ~FrmLiaison() override;

  /// What was chosen, once the dialog has been accepted; it can be stored, and may be empty.
  const QString &Separateur() const { return separateur_; }

 private:
  void Montrer();
  void Choisir(std::size_t option);
  void DemanderAutre();

  Boites &boites_;
  std::unique_ptr<Ui::FrmLiaison> ui_;
  std::array<QRadioButton *, 5> options_;
  QString separateur_;
};
