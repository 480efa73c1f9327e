#pragma once

#include "platform/Millimetres.h"

#include <QDialog>

#include <memory>

class Boites;

namespace Ui {
class FrmTaille;
}

/// The custom size of an envelope.
class FrmTaille : public QDialog {
  Q_OBJECT

 public:
  FrmTaille(Boites &boites, Millimetres largeur, Millimetres hauteur, QWidget *parent);
  ~FrmTaille() override;

  /// What was typed; 0 for a field that holds no size.
  Millimetres Largeur() const;
  Millimetres Hauteur() const;

 public slots:
  /// Asks where something has been typed.
  void reject() override;

 private:
  Boites &boites_;
  std::unique_ptr<Ui::FrmTaille> ui_;
};
