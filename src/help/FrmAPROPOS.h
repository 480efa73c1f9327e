#pragma once

#include <QDialog>

#include <memory>

class Boites;
class Coquille;
class EtiquetteLien;

namespace Ui {
class FrmAPROPOS;
}

/// The about window: the version, who made the program and where they are to be found, and the
/// licences.
class FrmAPROPOS : public QDialog {
  Q_OBJECT

 public:
  FrmAPROPOS(Boites &boites, Coquille &coquille, QWidget *parent);
  ~FrmAPROPOS() override;

 private:
  void Relier(EtiquetteLien *lien, const QString &adresse);

  Boites &boites_;
  Coquille &coquille_;
  std::unique_ptr<Ui::FrmAPROPOS> ui_;
};
