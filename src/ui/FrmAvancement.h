#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class FrmAvancement;
}

/// How far a long work is. Its button and its closing only ask to stop: it stays, and keeps the
/// other windows from taking input, until the work has ended and whoever made it takes it away.
class FrmAvancement : public QDialog {
  Q_OBJECT

 public:
  static constexpr int kPas = 1000;  ///< what the bar ends at

  FrmAvancement(const QString &titre, QWidget *parent);
  ~FrmAvancement() override;

  /// `pas` from 0 to `kPas`.
  void Montrer(int pas);

  void reject() override;

 signals:
  void ArretDemande();

 private:
  std::unique_ptr<Ui::FrmAvancement> ui_;
};
