#pragma once

#include "storage/Reparation.h"

#include <QDialog>

#include <memory>

class Boites;
class Coquille;

namespace Ui {
class FrmBilan;
}

/// The report of a repair: what has become of each table, and where the file of before lies.
class FrmBilan : public QDialog {
  Q_OBJECT

 public:
  FrmBilan(Boites &boites, Coquille &coquille, const BilanReparation &bilan);
  ~FrmBilan() override;

 private:
  void Remplir(const BilanReparation &bilan);

  std::unique_ptr<Ui::FrmBilan> ui_;
};
