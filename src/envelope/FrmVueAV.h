#pragma once

#include "envelope/MiseEnPage.h"

#include <QDialog>

#include <vector>

class QLabel;

/// The preview: the envelope with the lines that are going to be printed. A click anywhere closes
/// it.
class FrmVueAV : public QDialog {
  Q_OBJECT

 public:
  /// Format of the envelope in millimetres; `lignes` comes from `MettreEnApercu`.
  FrmVueAV(Millimetres largeur, Millimetres hauteur, std::vector<LignePlacee> lignes);

  /// In millimetres of the picture.
  const std::vector<LignePlacee> &Lignes() const { return lignes_; }

 protected:
  void resizeEvent(QResizeEvent *evenement) override;
  void mousePressEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;

 private:
  class Image;

  std::vector<LignePlacee> lignes_;
  Image *PctVA;
  QLabel *Etiquette_KV1;  ///< the hint
};
