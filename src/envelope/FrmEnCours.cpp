#include "envelope/FrmEnCours.h"

#include "ui/EchelleProgramme.h"
#include "ui_FrmEnCours.h"

using namespace Qt::StringLiterals;

FrmEnCours::FrmEnCours(int nombre, QWidget *parent)
    : QDialog(parent), nombre_(nombre), ui_(std::make_unique<Ui::FrmEnCours>()) {
  ui_->setupUi(this);
  ui_->LblEnCours->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
  GarderTaille(ui_->LblEnCours);
  ui_->PrgEnCours->setRange(0, nombre);
  connect(ui_->CmdArreter, &QPushButton::clicked, this, &FrmEnCours::reject);
}

FrmEnCours::~FrmEnCours() = default;

void FrmEnCours::Montrer(int rang) {
  ui_->LblEnCours->setText(u"Enveloppe %1 sur %2"_s.arg(rang).arg(nombre_));
  ui_->PrgEnCours->setValue(rang);
}

void FrmEnCours::reject() {
  arrete_ = true;
  ui_->CmdArreter->setEnabled(false);
  ui_->CmdArreter->setText(u"Arrêt après celle-ci..."_s);
}
