#include "directory/FrmLoupe.h"

#include "storage/Lignes.h"
#include "ui/CouleurNumero.h"
#include "ui/Grandir.h"
#include "ui/Montrable.h"
#include "ui_FrmLoupe.h"

#include <QKeyEvent>
#include <QLayout>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

FrmLoupe::FrmLoupe(const Correspondant &fiche) : ui_(std::make_unique<Ui::FrmLoupe>()) {
  constexpr qsizetype kTitre = 80, kLisible = 200;  // characters; more would not fit the screen
  ui_->setupUi(this);
  setWindowTitle(Montrable(fiche.NomVelmira, kTitre));
  ui_->LblNLoupe->setText(Montrable(fiche.NomVelmira, kLisible));
  MontrerNumero(ui_->LblTel, ui_->LblPLoupe, fiche.Tel, fiche.ListeRougeTel);
  MontrerNumero(ui_->LblTelT, ui_->LblPTLoupe, fiche.TelTravail, fiche.ListeRougeTravail);
  MontrerNumero(ui_->LblPort, ui_->LblPoLoupe, fiche.Portable, false);
  MontrerNumero(ui_->LblFax, ui_->LblFLoupe, fiche.Fax, false);
  Grandir(ui_->LblNLoupe, 3, true);
  for (QWidget *valeur : {ui_->LblPLoupe, ui_->LblPTLoupe, ui_->LblPoLoupe, ui_->LblFLoupe})
    Grandir(valeur, 2.6);
  for (QWidget *libelle : {ui_->LblTel, ui_->LblTelT, ui_->LblPort, ui_->LblFax, ui_->LblExit}) {
    Grandir(libelle, 1.5);
    libelle->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);  // as wide as its text
  }
}

FrmLoupe::~FrmLoupe() = default;

void FrmLoupe::MontrerNumero(QLabel *libelle, QLabel *valeur, const QString &numero,
                             bool listeRouge) {
  valeur->setText(numero);
  Colorer(valeur, CouleurNumero(listeRouge, palette()));
  if (listeRouge) libelle->setText(libelle->text() + u" (liste rouge)"_s);
  libelle->setVisible(!numero.isEmpty());
  valeur->setVisible(!numero.isEmpty());
}

void FrmLoupe::showEvent(QShowEvent *evenement) {
  QWidget::showEvent(evenement);
  const int voulue =
      std::min(layout()->totalHeightForWidth(width()), screen()->availableSize().height());
  if (voulue > height()) resize(width(), voulue);
}

void FrmLoupe::mousePressEvent(QMouseEvent *) {
  close();
}

void FrmLoupe::keyPressEvent(QKeyEvent *evenement) {
  switch (evenement->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      close();
      break;
    default:
      QWidget::keyPressEvent(evenement);
  }
}

void FrmLoupe::closeEvent(QCloseEvent *evenement) {
  QWidget::closeEvent(evenement);
  emit Quittee();
}
