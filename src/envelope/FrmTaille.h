#pragma once

#include "platform/Millimetres.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmTaille;
}

/// The custom size of an envelope.
class FrmTaille : public QDialog {
  Q_OBJECT

 public:
  FrmTaille(Millimetres largeur, Millimetres hauteur, QWidget *parent);
  ~FrmTaille() override;

  /// What was typed; 0 for a field that holds no size.
  Millimetres Largeur() const;
  Millimetres Hauteur() const;

 private:
  std::unique_ptr<Ui::FrmTaille> ui_;
};
