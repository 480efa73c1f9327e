#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class FrmTaille;
}

/// The custom size of an envelope, in millimetres.
class FrmTaille : public QDialog {
  Q_OBJECT

 public:
  FrmTaille(float largeur, float hauteur, QWidget *parent);
  ~FrmTaille() override;

  /// What was typed; 0 for a field that holds no size.
  float Largeur() const;
  float Hauteur() const;

 private:
  std::unique_ptr<Ui::FrmTaille> ui_;
};
