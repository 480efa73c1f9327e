#include "address/ComboTitres.h"

#include "address/Titres.h"
#include "ui/Brancheur.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

ComboTitres::ComboTitres(QWidget *parent) : QComboBox(parent) {
  setEditable(true);
  setInsertPolicy(NoInsert);
  setCompleter(nullptr);
  disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);  // typing is not choosing
  lineEdit()->installEventFilter(this);
}

void ComboTitres::Relier(Boites &boites, const QString &appPath, QLineEdit *champ) {
  boites_ = &boites;
  appPath_ = appPath;
  champ_ = champ;
  QStringList titres;
  Signaler(boites, [&] { titres = LireTitres(appPath); });
  titres.sort(Qt::CaseInsensitive);
  addItem(u""_s);
  addItems(titres);
  Brancheur(boites, this)(this, &QComboBox::activated, &ComboTitres::Choisir);
}

QStringList ComboTitres::Titres() const {
  QStringList titres;
  for (int i = 1; i < count(); ++i) titres.append(itemText(i));
  return titres;
}

void ComboTitres::Choisir(int index) {
  const QString ligne = champ_->text();
  // The empty title changes nothing but what stands in the way of the next one.
  champ_->setText(RemplacerTitre(ligne, Titres(), itemText(index)));
  champ_->setFocus();
  champ_->end(false);
}

void ComboTitres::showPopup() {
  Signaler(*boites_, [this] { AjouterSaisie(); });
  QComboBox::showPopup();
}

void ComboTitres::AjouterSaisie() {
  const QString saisie = currentText();
  if (saisie.trimmed().isEmpty() || Titres().contains(saisie)) return;
  const QString titre = saisie.trimmed() + u"  "_s;
  QStringList titres = Titres();
  if (titres.contains(titre)) return;
  titres.append(titre);
  titres.sort(Qt::CaseInsensitive);
  insertItem(static_cast<int>(titres.indexOf(titre)) + 1, titre);
  EcrireTitres(appPath_, titres);
}

void ComboTitres::Effacer() {
  const QString titre = currentText();
  if (boites_->Question(Boites::Titre(), u"Effacer et supprimer \""_s + titre + u"\" ?"_s,
                        Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  const int index = findText(titre, Qt::MatchFixedString | Qt::MatchCaseSensitive);
  if (index > 0) removeItem(index);
  setCurrentIndex(0);
  EcrireTitres(appPath_, Titres());
}

void ComboTitres::keyPressEvent(QKeyEvent *evenement) {
  if (evenement->key() == Qt::Key_Delete && !currentText().isEmpty())
    Signaler(*boites_, [this] { Effacer(); });
  else
    QComboBox::keyPressEvent(evenement);
}

bool ComboTitres::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent *>(evenement)->key() == Qt::Key_Delete) {
    keyPressEvent(static_cast<QKeyEvent *>(evenement));  // the field would take it for itself
    return true;
  }
  return QComboBox::eventFilter(objet, evenement);
}
