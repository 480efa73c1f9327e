#pragma once

#include <QWidget>

struct Correspondant;

/// The enlarged view of a correspondent: name and numbers, to be read from a distance. A click
/// anywhere, or Escape, leaves it.
class FrmLoupe : public QWidget {
  Q_OBJECT

 public:
  explicit FrmLoupe(const Correspondant &fiche);

 signals:
  void Quittee();

 protected:
  void mousePressEvent(QMouseEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;
  void closeEvent(QCloseEvent *evenement) override;
};
