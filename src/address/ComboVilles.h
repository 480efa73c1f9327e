#pragma once

#include "platform/Boites.h"
#include "storage/Base.h"
#include "ui/ComboSaisie.h"

#include <QLineEdit>

/// The towns that are remembered. Choosing one gives its postal code to a field; where the town has
/// several the user picks one.
class ComboVilles : public ComboSaisie {
  Q_OBJECT

 public:
  using ComboSaisie::ComboSaisie;

  /// Reads the towns; one with several codes stands in the list once. `code` takes the code.
  void Relier(Boites &boites, Base &base, QLineEdit *code);

  /// The town is shown, and can be neither typed nor chosen.
  void Verrouiller(bool verrouille);

  void showPopup() override;

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;
  void wheelEvent(QWheelEvent *evenement) override;

 private:
  void Choisir(int index);

  Base *base_ = nullptr;
  QLineEdit *code_ = nullptr;
};
