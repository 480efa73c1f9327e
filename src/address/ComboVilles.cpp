#include "address/ComboVilles.h"

#include "address/FrmCode.h"
#include "address/Villes.h"
#include "storage/Tables.h"
#include "ui/Brancheur.h"

#include <QKeyEvent>
#include <QWheelEvent>

using namespace Qt::StringLiterals;

void ComboVilles::Relier(Boites &boites, Base &base, QLineEdit *code) {
  base_ = &base;
  code_ = code;
  if (!base.Ouverte()) return;
  for (const VilleCode &ville : VillesProposees(base)) addItem(ville.Ville, ville.Index);
  setCurrentIndex(-1);
  setEditText(u""_s);
  Brancheur(boites, this)(this, &QComboBox::activated, &ComboVilles::Choisir);
}

void ComboVilles::Verrouiller(bool verrouille) {
  lineEdit()->setReadOnly(verrouille);
}

void ComboVilles::showPopup() {
  if (!lineEdit()->isReadOnly()) ComboSaisie::showPopup();
}

void ComboVilles::keyPressEvent(QKeyEvent *evenement) {
  if (lineEdit()->isReadOnly())
    evenement->ignore();
  else
    ComboSaisie::keyPressEvent(evenement);
}

void ComboVilles::wheelEvent(QWheelEvent *evenement) {
  if (!lineEdit()->isReadOnly()) ComboSaisie::wheelEvent(evenement);
}

void ComboVilles::Choisir(int index) {
  const auto ville = TableVille(*base_).Lire(itemData(index).toLongLong());
  if (!ville) return;
  if (!PlusieursCodes(*ville)) {
    code_->setText(ville->CodePostal);
    return;
  }
  FrmCode dialogue(CodesDe(*base_, *ville), window());
  if (dialogue.exec() == QDialog::Accepted) code_->setText(dialogue.Code());
  if (code_->text().isEmpty()) code_->setFocus();
}
