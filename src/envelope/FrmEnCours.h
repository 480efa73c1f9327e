#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class FrmEnCours;
}

/// Tells which envelope of a run is being printed, and takes the wish to stop behind it.
class FrmEnCours : public QDialog {
  Q_OBJECT

 public:
  FrmEnCours(int nombre, QWidget *parent);
  ~FrmEnCours() override;

  /// The envelope that is being printed, from 1.
  void Montrer(int rang);
  bool Arrete() const { return arrete_; }

 public slots:
  /// The close box and Escape stop the run like the button.
  void reject() override;

 private:
  int nombre_;
  std::unique_ptr<Ui::FrmEnCours> ui_;
  bool arrete_ = false;
};
