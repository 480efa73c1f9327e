#pragma once

#include "platform/Plateforme.h"
#include "storage/Imprimantes.h"

#include <QDialog>

#include <memory>

class QLineEdit;

namespace Ui {
class FrmEtalonnage;
}

/// Measures what a printer does to one paper: prints the calibration page, takes where its cross
/// lies and how long its rulers are, and keeps the correction that follows, at once.
class FrmEtalonnage : public QDialog {
  Q_OBJECT

 public:
  FrmEtalonnage(Plateforme &plateforme, Imprimantes &imprimantes, QString appareil,
                const Papier &papier, QWidget *parent);
  ~FrmEtalonnage() override;

 public slots:
  /// Asks where something has been typed.
  void reject() override;

 private:
  void Imprimer();
  void Enregistrer();
  void Reinitialiser();
  /// Measures can be typed once a page has been printed with what is in force now.
  void PermettreMesures(bool permettre);
  void MontrerCorrection();
  void MontrerListe();
  void MontrerVoulue();
  MesureEtalon Mesuree() const;
  Correction EnVigueur() const;

  Plateforme &plateforme_;
  Imprimantes &imprimantes_;
  std::unique_ptr<Ui::FrmEtalonnage> ui_;
  QString appareil_;
  Papier papier_;
  MesureEtalon voulue_;
};
