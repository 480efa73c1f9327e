#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;
class QPushButton;

/// Tells which envelope of a run is being printed, and takes the wish to stop behind it.
class FrmEnCours : public QDialog {
  Q_OBJECT

 public:
  FrmEnCours(int nombre, QWidget *parent);

  /// The envelope that is being printed, from 1.
  void Montrer(int rang);
  bool Arrete() const { return arrete_; }

 public slots:
  /// The close box and Escape stop the run like the button.
  void reject() override;

 private:
  int nombre_;
  QLabel *LblEnCours;
  QProgressBar *avancement_;
  QPushButton *CmdArreter;
  bool arrete_ = false;
};
