#pragma once

#include <QDialog>

#include <memory>

class QListWidgetItem;

namespace Ui {
class FrmCode;
}

/// The postal codes of a town that has several.
class FrmCode : public QDialog {
  Q_OBJECT

 public:
  FrmCode(const QStringList &codes, QWidget *parent);
  ~FrmCode() override;

  /// The code that was chosen; empty for a new one, which the user is going to type.
  const QString &Code() const { return code_; }

 private:
  void Choisir(const QListWidgetItem *element);

  std::unique_ptr<Ui::FrmCode> ui_;
  QString code_;
};
