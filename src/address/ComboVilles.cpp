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
  const Brancheur brancher(boites, this);
  brancher(this, &QComboBox::activated, &ComboVilles::Choisir);
  connect(code, &QLineEdit::textChanged, this, [this](const QString &texte) {
    if (offertes_ > 0 && texte != codeOffert_) Offrir({});
  });
  connect(this, &ComboSaisie::Tapee, this, &ComboVilles::Completer);
}

void ComboVilles::Offrir(const QStringList &villes) {
  const QString texte = currentText();
  setCurrentIndex(-1);
  for (; offertes_ > 0; --offertes_) removeItem(0);
  insertItems(0, villes);
  offertes_ = static_cast<int>(villes.size());
  if (offertes_ > 0) insertSeparator(offertes_++);
  const QString invite =
      villes.isEmpty() ? QString() : u"%1 villes : flèche bas pour choisir"_s.arg(villes.size());
  lineEdit()->setPlaceholderText(invite);
  setAccessibleDescription(invite);
  setEditText(texte);
}

void ComboVilles::Montrer(const QString &ville) {
  Offrir({});
  posee_.clear();
  setEditText(ville);
}

void ComboVilles::Proposer(const QStringList &villes) {
  const bool libre = currentText().isEmpty() || currentText() == posee_;
  const bool plusieurs = villes.size() > 1;
  Offrir(plusieurs ? villes : QStringList());
  codeOffert_ = code_->text();
  if (!libre || villes.isEmpty()) return;
  posee_ = plusieurs ? QString() : villes.first();
  setEditText(posee_);
}

void ComboVilles::Completer(const QString &tape) {
  QStringList villes;
  // Another code's town would be a wrong one.
  const int fin = code_->text().isEmpty() ? count() : offertes_;
  for (int i = 0; i < fin; ++i) villes.append(itemText(i));
  const QString suite = FinDeVille(tape, villes);
  if (suite.isEmpty() || lineEdit()->cursorPosition() < tape.size()) return;
  lineEdit()->setText(tape + suite);
  lineEdit()->setSelection(static_cast<int>(tape.size()), static_cast<int>(suite.size()));
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
  else if (evenement->key() == Qt::Key_Down && offertes_ > 0 && currentText().isEmpty())
    showPopup();
  else
    ComboSaisie::keyPressEvent(evenement);
}

void ComboVilles::wheelEvent(QWheelEvent *evenement) {
  if (!lineEdit()->isReadOnly()) ComboSaisie::wheelEvent(evenement);
}

void ComboVilles::Choisir(int index) {
  const auto ville = TableVille(*base_).Lire(itemData(index).toLongLong());
  if (!ville) return;  // one of the typed code, too
  if (!PlusieursCodes(*ville)) {
    code_->setText(ville->CodePostal);
    return;
  }
  FrmCode dialogue(CodesDe(*base_, *ville), window());
  if (dialogue.exec() == QDialog::Accepted) code_->setText(dialogue.Code());
  if (code_->text().isEmpty()) code_->setFocus();
}
