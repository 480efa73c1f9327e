#pragma once

#include "platform/Boites.h"
#include "platform/Imprimante.h"
#include "storage/Reglages.h"

#include <QDialog>

#include <memory>

class Deplacable;
class QKeyEvent;
class QLineEdit;

namespace Ui {
class FrmConfigure;
}

/// How the printer takes an envelope: printer, orientation, edge, place in the tray, and the fine
/// position of the two text zones, as numbers or by dragging on a picture.
class FrmConfigure : public QDialog {
  Q_OBJECT

 public:
  /// Offers the printers that are known, and asks the system for them meanwhile.
  FrmConfigure(Boites &boites, Imprimante &imprimante, const ReglagesPlomex &plomex,
               QWidget *parent);
  ~FrmConfigure() override;

  /// The settings, once the dialog has been accepted.
  const ReglagesPlomex &Saisie() const { return plomex_; }

 public slots:
  /// Asks where something has been typed.
  void reject() override;

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  void Montrer();
  void Demander(Imprimante &imprimante);
  void ProposerImprimantes(const QStringList &noms);
  /// The combo goes to the next printer that begins with what is typed.
  void ChercherImprimante(const QString &lettres);
  void BrancherMarqueur(Deplacable *marqueur, QLineEdit *x, QLineEdit *y);
  /// The form for portrait or landscape; `gauche` is the left end of the sheet, in millimetres.
  void ChangerVue(bool portrait, double gauche);
  void EcrireIndice();
  /// Puts envelope and zones where the six fields say.
  void Dessiner();
  /// Counts a field up or down by a key of its own.
  void Compter(QLineEdit *champ, int pas);
  void Confirmer();

  Boites &boites_;
  std::unique_ptr<Ui::FrmConfigure> ui_;
  ReglagesPlomex plomex_;
  QString signe_;  ///< the last key, where it has counted: it may begin a number instead
};
