#pragma once

#include "address/CodesPostaux.h"
#include "platform/Boites.h"

#include <QDialog>

#include <memory>
#include <optional>

namespace Ui {
class FrmCP;
}

/// The search of a postal code or a town in the file of postal codes.
class FrmCP : public QDialog {
  Q_OBJECT

 public:
  FrmCP(Boites &boites, const QString &appPath, QWidget *parent);
  ~FrmCP() override;

  /// The line that was taken.
  const std::optional<CodePostal> &Choix() const { return choix_; }

 private:
  void Chercher();
  void Prendre();
  void Expliquer();

  Boites &boites_;
  QString appPath_;
  std::unique_ptr<Ui::FrmCP> ui_;
  QList<CodePostal> trouves_;  ///< what the list shows
  std::optional<CodePostal> choix_;
};
