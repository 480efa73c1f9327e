#include "envelope/FrmEnCours.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmEnCours::FrmEnCours(int nombre, QWidget *parent)
    : QDialog(parent),
      nombre_(nombre),
      LblEnCours(new QLabel(this)),
      avancement_(new QProgressBar(this)),
      CmdArreter(new QPushButton(u"&Arrêter après celle-ci"_s, this)) {
  setObjectName(u"FrmEnCours"_s);
  setWindowTitle(u"Impressions multiples"_s);
  setModal(true);
  auto *colonne = new QVBoxLayout(this);
  colonne->setSpacing(12);
  LblEnCours->setObjectName(u"LblEnCours"_s);
  LblEnCours->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
  avancement_->setRange(0, nombre);
  avancement_->setTextVisible(false);
  CmdArreter->setObjectName(u"CmdArreter"_s);
  colonne->addWidget(LblEnCours);
  colonne->addWidget(avancement_);
  colonne->addWidget(CmdArreter, 0, Qt::AlignRight);
  connect(CmdArreter, &QPushButton::clicked, this, &FrmEnCours::reject);
}

void FrmEnCours::Montrer(int rang) {
  LblEnCours->setText(u"Enveloppe %1 sur %2"_s.arg(rang).arg(nombre_));
  avancement_->setValue(rang);
}

void FrmEnCours::reject() {
  arrete_ = true;
  CmdArreter->setEnabled(false);
  CmdArreter->setText(u"Arrêt après celle-ci..."_s);
}
