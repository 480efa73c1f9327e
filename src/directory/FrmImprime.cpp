#include "directory/FrmImprime.h"

#include "ui/EchelleProgramme.h"
#include "ui_FrmImprime.h"

FrmImprime::FrmImprime(QWidget *liste)
    : QDialog(liste->window()), ui_(std::make_unique<Ui::FrmImprime>()) {
  ui_->setupUi(this);
  for (QCheckBox *coche : findChildren<QCheckBox *>())
    connect(coche, &QCheckBox::clicked, this, [this] { ui_->CmdContinuer->setFocus(); });
  connect(ui_->CmdContinuer, &QPushButton::clicked, this, &QDialog::accept);
  GarderTaille(this);
  resize(liste->width(), sizeHint().height());
  move(liste->mapToGlobal(QPoint()));
}

FrmImprime::~FrmImprime() = default;

ChoixListe FrmImprime::Choix() const {
  return {.domicile = ui_->ChkImp_0->isChecked(),
          .travail = ui_->ChkImp_1->isChecked(),
          .portable = ui_->ChkImp_2->isChecked(),
          .fax = ui_->ChkImp_3->isChecked(),
          .mail = ui_->ChkImp_4->isChecked(),
          .web = ui_->ChkImp_5->isChecked(),
          .adresse = ui_->ChkImp_6->isChecked()};
}
