#pragma once

#include "envelope/MiseEnPage.h"

#include <QDialog>

#include <memory>
#include <vector>

namespace Ui {
class FrmVueAV;
}

/// The preview: the envelope with the lines that are going to be printed, in true size where the
/// screen holds it. A click anywhere closes it.
class FrmVueAV : public QDialog {
  Q_OBJECT

 public:
  /// Format of the envelope; `lignes` comes from `MettreEnApercu`.
  FrmVueAV(Millimetres largeur, Millimetres hauteur, std::vector<LignePlacee> lignes);
  ~FrmVueAV() override;

  /// In millimetres of the picture.
  const std::vector<LignePlacee> &Lignes() const;

 protected:
  void mousePressEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;

 private:
  std::unique_ptr<Ui::FrmVueAV> ui_;
};
