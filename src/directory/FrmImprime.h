#pragma once

#include "directory/ImpressionListe.h"

#include <QDialog>

#include <memory>

namespace Ui {
class FrmImprime;
}

/// Asks which lines of the records the printed list takes; all are ticked at first.
class FrmImprime : public QDialog {
  Q_OBJECT

 public:
  /// Stands over the upper part of the list, as wide as it.
  explicit FrmImprime(QWidget *liste);
  ~FrmImprime() override;

  ChoixListe Choix() const;

 private:
  std::unique_ptr<Ui::FrmImprime> ui_;
};
