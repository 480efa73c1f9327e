#pragma once

#include "platform/Boites.h"
#include "storage/Reglages.h"

#include <QDialog>

#include <memory>

class Deplacable;
class QLineEdit;

namespace Ui {
class FrmConfigure;
}

/// How the printer takes an envelope: printer, orientation, edge, place in the tray, and the fine
/// position of the two text zones, as numbers or by dragging on a picture.
class FrmConfigure : public QDialog {
  Q_OBJECT

 public:
  /// `imprimantes` are the names that can be chosen.
  FrmConfigure(Boites &boites, const QStringList &imprimantes, const ReglagesPlomex &plomex,
               QWidget *parent);
  ~FrmConfigure() override;

  /// The settings, once the dialog has been accepted.
  const ReglagesPlomex &Saisie() const { return plomex_; }

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void Montrer(const QStringList &imprimantes);
  void BrancherMarqueur(Deplacable *marqueur, QLineEdit *x, QLineEdit *y);
  /// The form for portrait or landscape; `gauche` is the left end of the sheet, in millimetres.
  void ChangerVue(bool portrait, double gauche);
  void EcrireIndice();
  /// Puts envelope and zones where the six fields say.
  void Dessiner();
  void Confirmer();

  Boites &boites_;
  std::unique_ptr<Ui::FrmConfigure> ui_;
  ReglagesPlomex plomex_;
};
