#include "address/ComboTitres.h"

#include "address/Titres.h"
#include "ui/Brancheur.h"

#include <QFocusEvent>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

void ComboTitres::Relier(Boites &boites, const QString &appPath, QLineEdit *champ) {
  boites_ = &boites;
  appPath_ = appPath;
  champ_ = champ;
  QStringList titres;
  Signaler(boites, [&] { titres = LireTitres(appPath); });
  TrierTitres(titres);
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

int ComboTitres::Rang(const QString &titre) const {
  const QStringList titres = Titres();
  for (int i = 0; i < titres.size(); ++i)
    if (EstTitreConnu({titres[i]}, titre)) return i + 1;
  return -1;
}

bool ComboTitres::EnAttente() const {
  return lineEdit()->isModified() && !currentText().trimmed().isEmpty();
}

void ComboTitres::Poser(const QString &titre) {
  champ_->setText(RemplacerTitre(champ_->text(), Titres() << pose_, titre));
  pose_ = titre.trimmed();
  lineEdit()->setModified(false);
}

void ComboTitres::AllerAuChamp() {
  champ_->setFocus();
  champ_->end(false);
}

void ComboTitres::Conclure() {
  if (EnAttente()) Poser(currentText().trimmed());
}

void ComboTitres::Finir() {
  Conclure();
  if (champ_->text() == pose_ + u' ') champ_->setText(pose_);
}

bool ComboTitres::ConclureEtAvancer() {
  if (!EnAttente()) return false;
  Conclure();
  AllerAuChamp();
  return true;
}

void ComboTitres::Choisir(int index) {
  // The empty title changes nothing but what stands in the way of the next one.
  Poser(itemText(index));
  AllerAuChamp();
}

void ComboTitres::focusOutEvent(QFocusEvent *evenement) {
  ComboASuppression::focusOutEvent(evenement);
  // The list and a box give the focus back: nothing has been left.
  const auto cause = evenement->reason();
  if (cause != Qt::PopupFocusReason && cause != Qt::ActiveWindowFocusReason &&
      cause != Qt::MenuBarFocusReason)
    Conclure();
}

void ComboTitres::keyPressEvent(QKeyEvent *evenement) {
  const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
  if (!entree || !ConclureEtAvancer()) ComboASuppression::keyPressEvent(evenement);
}

bool ComboTitres::focusNextPrevChild(bool suivant) {
  // Entering the field by the key would select it whole: the name would take the title's place.
  return (suivant && ConclureEtAvancer()) || ComboASuppression::focusNextPrevChild(suivant);
}

void ComboTitres::showPopup() {
  bool admis = true;
  Signaler(*boites_, [&] { admis = AjouterSaisie(); });
  if (!admis) return;
  DesignerSaisie();
  ComboASuppression::showPopup();
}

void ComboTitres::DesignerSaisie() {
  if (!EnAttente()) return;
  const QString saisie = currentText();
  setCurrentIndex(Rang(saisie));
  setEditText(saisie);
  lineEdit()->setModified(true);
}

bool ComboTitres::AjouterSaisie() {
  const QString titre = currentText().trimmed() + u"  "_s;
  QStringList titres = Titres();
  if (titre.trimmed().isEmpty() || EstTitreConnu(titres, titre)) return true;
  if (!EstTitreEnregistrable(titre)) {
    boites_->Attention(
        u"Le titre « %1 » ne peut pas être ajouté à la liste : le fichier Civilite.txt n'admet pas "
        "tous ses caractères.\nLa liste n'a pas changé. Écrivez-le autrement."_s.arg(
            titre.trimmed()));
    return false;
  }
  AjouterTitre(appPath_, titre);
  TrierTitres(titres << titre);
  insertItem(static_cast<int>(titres.indexOf(titre)) + 1, titre);
  return true;
}

void ComboTitres::Effacer() {
  const QString titre = currentText();
  if (titre.isEmpty()) return;
  if (boites_->Question(Boites::Titre(), u"Effacer et supprimer \""_s + titre + u"\" ?"_s,
                        Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  RetirerTitre(appPath_, titre);
  for (int rang = Rang(titre); rang > 0; rang = Rang(titre)) removeItem(rang);
  setCurrentIndex(0);
}
