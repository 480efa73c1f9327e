#include "address/ComboTitres.h"

#include "address/Titres.h"
#include "ui/Brancheur.h"

using namespace Qt::StringLiterals;

void ComboTitres::Relier(Boites &boites, const QString &appPath, QLineEdit *champ) {
  boites_ = &boites;
  appPath_ = appPath;
  champ_ = champ;
  QStringList titres;
  Signaler(boites, [&] { titres = LireTitres(appPath); });
  titres.sort(Qt::CaseInsensitive);
  addItem(u""_s);
  addItems(titres);
  const Brancheur brancher(boites, this);
  brancher(this, &QComboBox::activated, &ComboTitres::Choisir);
  brancher(this, &ComboASuppression::SuppressionDemandee, &ComboTitres::Effacer);
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
  AjouterTitre(appPath_, titre);
  titres.append(titre);
  titres.sort(Qt::CaseInsensitive);
  insertItem(static_cast<int>(titres.indexOf(titre)) + 1, titre);
}

void ComboTitres::Effacer() {
  const QString titre = currentText();
  if (titre.isEmpty()) return;
  if (boites_->Question(Boites::Titre(), u"Effacer et supprimer \""_s + titre + u"\" ?"_s,
                        Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  RetirerTitre(appPath_, titre);
  const int index = findText(titre, Qt::MatchFixedString | Qt::MatchCaseSensitive);
  if (index > 0) removeItem(index);
  setCurrentIndex(0);
}
