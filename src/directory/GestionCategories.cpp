#include "directory/GestionCategories.h"

#include "directory/Categories.h"
#include "ui/Garde.h"
#include "ui/Sablier.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

bool EstReservee(const QString &nom) {
  return nom == Favoris() || nom == ToutesCategories();
}

}  // namespace

GestionCategories::GestionCategories(Boites &boites, Base &base, const Controles &controles,
                                     std::function<void()> changees)
    : boites_(boites), base_(base), c_(controles), changees_(std::move(changees)) {
  c_.categorie->setCompleter(nullptr);
  c_.categorie->installEventFilter(this);
  c_.categorie->lineEdit()->installEventFilter(this);
  connect(c_.categorie->lineEdit(), &QLineEdit::textEdited, this, &GestionCategories::Completer);
  connect(c_.enregistrer, &QPushButton::clicked, this,
          Garde(boites_, [this](bool) { Enregistrer(); }));
  connect(c_.modifier, &QPushButton::clicked, this,
          Garde(boites_, [this](bool) { ModifierOuSupprimer(); }));
  Remplir();
}

void GestionCategories::RemplirCombo(const QStringList &categories) {
  c_.categorie->clear();
  c_.categorie->addItems(categories);
  c_.categorie->setCurrentIndex(-1);
  c_.categorie->setEditText(u""_s);
}

void GestionCategories::Remplir() {
  const QStringList categories = ListerCategories(base_, false);
  RemplirCombo(categories);
  c_.liste->clear();
  c_.liste->addItems(categories.mid(1));  // all but the pseudo-category at the head
}

void GestionCategories::Marquer(const QString &categories) {
  for (const QString &nom : categories.split(u'*', Qt::SkipEmptyParts)) Selectionner(nom);
}

bool GestionCategories::Selectionner(const QString &nom) {
  for (int i = 0; i < c_.liste->count(); ++i)
    if (c_.liste->item(i)->text() == nom) {
      c_.liste->item(i)->setSelected(true);
      return true;
    }
  return false;
}

QString GestionCategories::Marquees() const {
  QString categories;
  for (int i = 0; i < c_.liste->count(); ++i)
    if (c_.liste->item(i)->isSelected()) categories += c_.liste->item(i)->text() + u'*';
  return categories.isEmpty() ? u""_s : u'*' + categories;
}

void GestionCategories::Completer(const QString &texte) {
  const bool efface = saisie_.startsWith(texte);
  saisie_ = texte;
  if (texte.isEmpty() || efface) return;  // what was just erased is not put back
  for (int i = 0; i < c_.categorie->count(); ++i) {
    const QString nom = c_.categorie->itemText(i);
    if (nom.left(texte.size()).trimmed().toUpper() != texte.toUpper()) continue;
    c_.categorie->setEditText(nom);
    break;
  }
  QLineEdit *champ = c_.categorie->lineEdit();
  champ->setSelection(static_cast<int>(texte.size()),
                      static_cast<int>(champ->text().size() - texte.size()));
}

bool GestionCategories::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent *>(evenement)->key() == Qt::Key_Delete) {
    c_.categorie->setEditText(u""_s);
    saisie_.clear();
    return true;
  }
  return QObject::eventFilter(objet, evenement);
}

void GestionCategories::Enregistrer() {
  boites_.Information(
      u"L'enregistrement d'une nouvelle catégorie ne peut être effective\n"
      "que si elle contient au moins un Velmira.\n\n"
      "Dans le cas contraire, elle ne sera pas créée."_s);
  const QString nom = c_.categorie->currentText();
  for (int i = 0; i < c_.liste->count(); ++i)
    if (c_.liste->item(i)->text() == nom) {
      boites_.Information(u"Catégorie déjà listée !"_s);
      return;
    }
  if (nom.isEmpty() || EstReservee(nom)) return;
  c_.liste->addItem(nom);
  Selectionner(nom);
  RemplirCombo(ListerCategories(base_, false));
}

void GestionCategories::ModifierOuSupprimer() {
  const QString nom = c_.categorie->currentText();
  if (nom.isEmpty()) {
    boites_.Information(u"Sélectionnez une catégorie dans la liste déroulante."_s);
    return;
  }
  if (EstReservee(nom)) {
    boites_.Information(u"Cette catégorie ne peut être modifiée."_s);
    return;
  }
  const QString haut = nom.toUpper();
  switch (boites_.QuestionAnnulable(Boites::Titre(),
                                    u"Voulez-vous :\n\no-   Modifier  ' "_s + haut +
                                        u" '  (répondre OUI)    \no-  ou Supprimer  ' "_s + haut +
                                        u" '  (répondre NON)    "_s)) {
    case Boites::Choix::Oui:
      Renommer(nom);
      break;
    case Boites::Choix::Non:
      Supprimer(nom);
      break;
    case Boites::Choix::Annuler:
      break;
  }
}

void GestionCategories::Supprimer(const QString &nom) {
  if (boites_.Question(Boites::Titre(), u"Supprimer \""_s + nom + u"\" ?"_s,
                       Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  Balayer(nom, [&nom](const QString &categories) { return SansCategorie(categories, nom); });
}

void GestionCategories::Balayer(const QString &nom,
                                const std::function<QString(const QString &)> &regle) {
  {
    const Sablier sablier;
    TableAdresse(base_).ChangerCategories(nom, regle);
  }
  const QString marquees = Marquees();
  Remplir();
  Marquer(marquees);
  changees_();
}

void GestionCategories::Renommer(const QString &nom) {
  c_.categorie->setEditText(u""_s);
  const QString nouveau = boites_.Saisie(Boites::Titre(), u"Faites votre modification :"_s, nom);
  if (nouveau.isEmpty()) return;
  Balayer(nom, [&](QString categories) { return categories.replace(nom, nouveau); });
  Selectionner(nouveau);
  c_.liste->setFocus();
}
