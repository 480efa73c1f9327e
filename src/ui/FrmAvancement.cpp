#include "ui/FrmAvancement.h"

#include "ui_FrmAvancement.h"

FrmAvancement::FrmAvancement(const QString &titre, QWidget *parent)
    : QDialog(parent), ui_(std::make_unique<Ui::FrmAvancement>()) {
  ui_->setupUi(this);
  setWindowTitle(titre);
  ui_->LblTitre->setText(titre);
  Montrer(0);
  connect(ui_->CmdArreter, &QPushButton::clicked, this, &FrmAvancement::reject);
}

FrmAvancement::~FrmAvancement() = default;

void FrmAvancement::Montrer(int pas) {
  ui_->Barre->setRange(0, pas > 0 ? kPas : 0);  // nobody knows how far a work is that only waits
  ui_->Barre->setValue(pas);
}

void FrmAvancement::reject() {
  ui_->CmdArreter->setEnabled(false);
  emit ArretDemande();
}
