#include "address/ComboVilles.h"

#include "address/FrmCode.h"
#include "storage/Tables.h"
#include "ui/Brancheur.h"

#include <QKeyEvent>
#include <QSet>
#include <QWheelEvent>

#include <algorithm>

using namespace Qt::StringLiterals;

ComboVilles::ComboVilles(QWidget *parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);  // a town stays as it was typed
  // A town that is typed is not chosen: the code that was typed before it stays.
  disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
}

void ComboVilles::Relier(Boites &boites, Base &base, QLineEdit *code) {
  base_ = &base;
  code_ = code;
  if (!base.Ouverte()) return;
  QList<VilleCode> villes;
  QSet<QString> plusieurs;
  for (const VilleCode &ligne : TableVille(base).Toutes()) {
    if (ligne.Liens.contains(u'*')) {
      if (plusieurs.contains(ligne.Ville)) continue;
      plusieurs.insert(ligne.Ville);
    }
    villes.append(ligne);
  }
  std::stable_sort(villes.begin(), villes.end(), [](const VilleCode &a, const VilleCode &b) {
    return a.Ville.compare(b.Ville, Qt::CaseInsensitive) < 0;
  });
  for (const VilleCode &ligne : villes) addItem(ligne.Ville, ligne.Index);
  setCurrentIndex(-1);
  setEditText(u""_s);
  Brancheur(boites, this)(this, &QComboBox::activated, &ComboVilles::Choisir);
}

void ComboVilles::Verrouiller(bool verrouille) {
  lineEdit()->setReadOnly(verrouille);
}

void ComboVilles::showPopup() {
  if (!lineEdit()->isReadOnly()) QComboBox::showPopup();
}

void ComboVilles::keyPressEvent(QKeyEvent *evenement) {
  if (lineEdit()->isReadOnly())
    evenement->ignore();
  else
    QComboBox::keyPressEvent(evenement);
}

void ComboVilles::wheelEvent(QWheelEvent *evenement) {
  if (!lineEdit()->isReadOnly()) QComboBox::wheelEvent(evenement);
}

void ComboVilles::Choisir(int index) {
  const TableVille table(*base_);
  const auto ville = table.Lire(itemData(index).toLongLong());
  if (!ville) return;
  if (!ville->Liens.contains(u'*')) {
    code_->setText(ville->CodePostal);
    return;
  }
  QStringList codes;
  for (const QString &lien : ville->Liens.split(u'*'))
    if (const auto ligne = table.Lire(lien.toLongLong())) codes.append(ligne->CodePostal);
  FrmCode dialogue(codes, window());
  if (dialogue.exec() == QDialog::Accepted) code_->setText(dialogue.Code());
  if (code_->text().isEmpty()) code_->setFocus();
}
