#pragma once

#include "platform/Boites.h"

#include <QDialog>

class QListWidget;

/// The search of a postal code or a town in the file of postal codes.
class FrmCP : public QDialog {
  Q_OBJECT

 public:
  FrmCP(Boites &boites, const QString &appPath, QWidget *parent);

  /// The line that was taken: five characters of code, two of separation, the town; empty for none.
  const QString &Ligne() const { return ligne_; }

  static QString Code(const QString &ligne) { return ligne.left(5); }
  static QString Ville(const QString &ligne) { return ligne.mid(7); }

 private:
  void Chercher();
  void Prendre();

  Boites &boites_;
  QString appPath_;
  QListWidget *LstCP;
  QString ligne_;
};
