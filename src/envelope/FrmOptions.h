#pragma once

#include "platform/Boites.h"
#include "storage/Reglages.h"

#include <QDialog>

#include <array>
#include <memory>

class QComboBox;
class QLabel;
class QRadioButton;

namespace Ui {
class FrmOptions;
}

/// How addressee and sender are written: fonts, alignment, blank and bold lines, the key that
/// prints, the text between postal code and town, the postal norm.
class FrmOptions : public QDialog {
  Q_OBJECT

 public:
  /// What the dialog shows and gives back.
  struct Valeurs {
    ReglagesPlomex plomex;
    QString liaisonCP;
    ReglagesNorme norme;
  };

  /// `polices` are the fonts of the system.
  FrmOptions(Boites &boites, const QStringList &polices, const Valeurs &valeurs, QWidget *parent);
  ~FrmOptions() override;

  /// The settings, once the dialog has been accepted.
  const Valeurs &Saisie() const { return valeurs_; }

 public slots:
  /// Asks where something has been typed.
  void reject() override;

 protected:
  void showEvent(QShowEvent *evenement) override;

 private:
  void Montrer(const QStringList &polices);
  /// The choices of the norm are open while it is ticked.
  void OuvrirNorme(bool active);
  void BrancherPolice(QComboBox *liste, QLabel *exemple);
  void Confirmer();

  Boites &boites_;
  std::unique_ptr<Ui::FrmOptions> ui_;
  std::array<QRadioButton *, 3> optA_{}, optE_{};  ///< by the alignment that they stand for
  Valeurs valeurs_;
};
