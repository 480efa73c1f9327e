#pragma once

#include "platform/Horloge.h"

#include <QDialog>

#include <memory>

class TravailDeFond;

namespace Ui {
class FrmEnCours;
}

/// Stands before the windows while a run goes: the envelope that is being printed, what is left,
/// and the wishes to pause, to stop behind it, or to give up a printer that keeps silent.
class FrmEnCours : public QDialog {
  Q_OBJECT

 public:
  FrmEnCours(Horloge &horloge, int nombre, QWidget *parent);
  ~FrmEnCours() override;

  /// The envelope that is being printed, from 1, its address in lines, and what is left behind it.
  void Montrer(int rang, const QString &adresse, const QString &reste);

  /// Waits for that envelope; its printer can be given up once it has kept silent for some seconds.
  void Attendre(TravailDeFond &fond);

  /// Whether the next one is to be printed; waits while the run is paused.
  bool Continuer();
  bool Arrete() const { return arrete_; }

 public slots:
  /// The close box and Escape stop the run like the button.
  void reject() override;

 private:
  void Interrompre();

  Horloge &horloge_;
  int nombre_;
  std::unique_ptr<Ui::FrmEnCours> ui_;
  QString reste_;
  bool enPause_ = false;
  bool arrete_ = false;
};
