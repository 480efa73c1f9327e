#include "envelope/FrmTaille.h"

#include "platform/Boites.h"
#include "platform/Saisie.h"
#include "ui/Abandon.h"
#include "ui/SelectionAuFocus.h"
#include "ui_FrmTaille.h"

#include <QLocale>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString TexteTaille(Millimetres taille) {
  return QString::number(taille.valeur, 'f', QLocale::FloatingPointShortest).replace(u'.', u',');
}

Millimetres Taille(const QString &texte) {
  return Millimetres(std::max(0.0, NombreSaisi(texte)));
}

}  // namespace

FrmTaille::FrmTaille(Boites &boites, Millimetres largeur, Millimetres hauteur, QWidget *parent)
    : QDialog(parent), boites_(boites), ui_(std::make_unique<Ui::FrmTaille>()) {
  ui_->setupUi(this);
  ui_->TxtL->setText(TexteTaille(largeur));
  ui_->TxtH->setText(TexteTaille(hauteur));
  for (QLineEdit *champ : {ui_->TxtL, ui_->TxtH}) new SelectionAuFocus(champ);
  connect(ui_->CmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

FrmTaille::~FrmTaille() = default;

void FrmTaille::reject() {
  if (PeutAbandonner(boites_, *this)) QDialog::reject();
}

Millimetres FrmTaille::Largeur() const {
  return Taille(ui_->TxtL->text());
}
Millimetres FrmTaille::Hauteur() const {
  return Taille(ui_->TxtH->text());
}
