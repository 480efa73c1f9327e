#pragma once

#include <QObject>
#include <QPalette>

/// As long as it lives, what the desktop's colours leave hard to read is mended: links, prompts in
/// empty fields, and the ground of what is selected keep a contrast of 4.5 to 1, what is disabled
/// one of 3 to 1. All else is the
/// desktop's, also when it changes its colours while the program runs.
class PaletteLisible : public QObject {
  Q_OBJECT

 public:
  PaletteLisible();

  /// A palette in which that is so.
  static QPalette De(QPalette palette);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void Accorder();

  bool enCours_ = false;
};
