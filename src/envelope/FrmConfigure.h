#pragma once

#include "platform/Plateforme.h"
#include "storage/Imprimantes.h"
#include "storage/Reglages.h"

#include <QDialog>
#include <QHash>

#include <memory>

class Deplacable;
class QKeyEvent;
class QLineEdit;

namespace Ui {
class FrmConfigure;
}

/// How the printer takes an envelope: printer, paper, orientation, edge, place in the tray, and the
/// fine position of the two text zones, as numbers or by dragging on a picture. Another printer
/// brings its own settings back; from here it is calibrated.
class FrmConfigure : public QDialog {
  Q_OBJECT

 public:
  /// Offers the printers that are known, and asks the system for them meanwhile. `enveloppe` is the
  /// format in force. A calibration is kept in `imprimantes` at once.
  FrmConfigure(Plateforme &plateforme, Imprimantes &imprimantes, const ReglagesPlomex &plomex,
               const Taille &enveloppe, QWidget *parent);
  ~FrmConfigure() override;

  /// The settings, once the dialog has been accepted.
  const ReglagesPlomex &Saisie() const { return plomex_; }
  /// The paper that goes with them.
  PapierEnveloppe ChoixPapier() const;

 public slots:
  /// Asks where something has been typed.
  void reject() override;

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  /// What the controls show.
  struct Prise {
    ReglagesPlomex plomex;
    PapierEnveloppe papier = {};
  };

  Prise Affichee() const;
  void Montrer(const Prise &prise);
  /// Shows what belongs to the printer that is chosen now.
  void SuivreImprimante();
  void Etalonner();
  void MontrerCorrection();
  Papier PapierChoisi() const;
  void Demander();
  void ProposerImprimantes(const QStringList &noms);
  /// The combo goes to the next printer that begins with what is typed.
  void ChercherImprimante(const QString &lettres);
  void BrancherMarqueur(Deplacable *marqueur, QLineEdit *x, QLineEdit *y);
  /// The form for what is chosen; a change of view, against what was opened, moves the sheet a
  /// little.
  void ChangerVue(bool choisie);
  /// In millimetres of the picture, with room for the hint above or below.
  void PlacerFeuille(const QRectF &feuille, bool indiceDessus);
  void EcrireIndice();
  /// Puts envelope and zones where the six fields say.
  void Dessiner();
  /// Counts a field up or down by a key of its own.
  void Compter(QLineEdit *champ, int pas);
  void Confirmer();

  Plateforme &plateforme_;
  Imprimantes &imprimantes_;
  std::unique_ptr<Ui::FrmConfigure> ui_;
  ReglagesPlomex plomex_;
  Taille enveloppe_;
  QString montree_;               ///< the printer whose settings are shown
  QHash<QString, Prise> prises_;  ///< of the printers that were shown before
  QString signe_;  ///< the last key, where it has counted: it may begin a number instead
};
