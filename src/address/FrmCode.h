#pragma once

#include <QDialog>

class QListWidgetItem;

/// The postal codes of a town that has several.
class FrmCode : public QDialog {
  Q_OBJECT

 public:
  FrmCode(const QStringList &codes, QWidget *parent);

  /// The code that was chosen; empty for a new one, which the user is going to type.
  const QString &Code() const { return code_; }

 private:
  void Choisir(const QListWidgetItem *element);

  QString code_;
};
