#pragma once

#include "envelope/MiseEnPage.h"

#include <QWidget>

#include <vector>

/// The picture of the preview: white paper with lines on it.
class PapierApercu : public QWidget {
  Q_OBJECT

 public:
  explicit PapierApercu(QWidget *parent = nullptr) : QWidget(parent) {}

  /// The lines in millimetres of the picture, of which each is so many pixels long.
  void Montrer(std::vector<LignePlacee> lignes, double pixelsParMillimetre);
  const std::vector<LignePlacee> &Lignes() const { return lignes_; }

 protected:
  void paintEvent(QPaintEvent *evenement) override;

 private:
  std::vector<LignePlacee> lignes_;
  double echelle_ = 1;
};
