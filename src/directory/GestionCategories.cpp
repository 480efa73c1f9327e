#include "directory/GestionCategories.h"

#include "directory/Categories.h"
#include "storage/Historique.h"
#include "ui/Brancheur.h"
#include "ui/Bulle.h"
#include "ui/CochesDeSelection.h"
#include "ui/Debrancher.h"
#include "ui/Sablier.h"
#include "ui_GestionCategories.h"

#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

bool EstReservee(const QString &nom) {
  return nom == Favoris() || !EstEnregistree(nom);
}

QStringList Noms(const QString &categories) {
  return categories.split(u'*', Qt::SkipEmptyParts);
}

}  // namespace

GestionCategories::GestionCategories(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::GestionCategories>()) {
  ui_->setupUi(this);
  ui_->LstCat->setItemDelegate(new CochesDeSelection(ui_->LstCat));
}

GestionCategories::~GestionCategories() {
  DebrancherEnfants(*this);
}

void GestionCategories::Relier(Boites &boites, Horloge &horloge, Base &base,
                               std::function<void(const RegleCategories &)> changees) {
  boites_ = &boites;
  base_ = &base;
  changees_ = std::move(changees);
  const Brancheur brancher(boites, this);
  brancher(ui_->CmdEnrCat, &GestionCategories::Enregistrer);
  brancher(ui_->CmdModSup, &GestionCategories::ModifierOuSupprimer);
  ui_->CboCat->installEventFilter(this);
  ui_->LstCat->installEventFilter(this);
  connect(ui_->CboCat, &ComboSaisie::Tapee, this, &GestionCategories::Completer);
  connect(ui_->CboCat, &ComboASuppression::SuppressionDemandee, ui_->CboCat,
          &QComboBox::clearEditText);
  PoserBulle(ui_->CmdEnrCat, horloge, {u"Enregistrer\nla nouvelle catégorie"_s, kBulleJaune});
  PoserBulle(ui_->CmdModSup, horloge,
             {u"Supprimer ou modifier\nla catégorie sélectionnée"_s, kBulleJaune});
  Remplir();
}

bool GestionCategories::AllerA(const QString &lettre) {
  if (lettre.trimmed().isEmpty() || !lettre.front().isPrint()) return false;
  QItemSelectionModel *selection = ui_->LstCat->selectionModel();
  const QItemSelection marquees = selection->selection();
  ui_->LstCat->keyboardSearch(lettre);
  selection->select(marquees, QItemSelectionModel::ClearAndSelect);  // it has changed that one's
  return true;
}

bool GestionCategories::eventFilter(QObject *objet, QEvent *evenement) {
  if (objet == ui_->LstCat && evenement->type() == QEvent::KeyPress &&
      AllerA(static_cast<const QKeyEvent *>(evenement)->text()))
    return true;
  const bool frappe = objet == ui_->CboCat && evenement->type() == QEvent::KeyPress;
  const int touche = frappe ? static_cast<const QKeyEvent *>(evenement)->key() : 0;
  const bool entree = touche == Qt::Key_Return || touche == Qt::Key_Enter;
  if (!entree || ui_->CboCat->currentText().isEmpty())
    return QWidget::eventFilter(objet, evenement);
  ui_->CmdEnrCat->click();
  return true;
}

void GestionCategories::RemplirCombo(const QStringList &categories) {
  ui_->CboCat->clear();
  ui_->CboCat->addItems(categories);
  ui_->CboCat->setCurrentIndex(-1);
  ui_->CboCat->setEditText(u""_s);
}

void GestionCategories::Remplir() {
  const QStringList categories = ListerCategories(*base_);
  RemplirCombo(categories);
  ui_->LstCat->clear();
  ui_->LstCat->addItems(categories);
}

void GestionCategories::Montrer(const QString &categories) {
  montrees_ = categories;
  Marquer(categories);
}

void GestionCategories::Marquer(const QString &categories) {
  for (const QString &nom : Noms(categories))
    if (QListWidgetItem *listee = Listee(nom)) listee->setSelected(true);
}

QListWidgetItem *GestionCategories::Listee(const QString &nom) const {
  return ui_->LstCat->findItems(nom, Qt::MatchExactly).value(0);
}

QString GestionCategories::Marquees() const {
  QStringList restantes = Noms(montrees_);
  QString categories;
  bool changees = false;
  for (int i = 0; i < ui_->LstCat->count(); ++i) {
    const QListWidgetItem *listee = ui_->LstCat->item(i);
    const bool montree = restantes.removeAll(listee->text()) > 0;
    changees |= listee->isSelected() != montree;
    if (listee->isSelected()) categories += listee->text() + u'*';
  }
  if (!changees) return montrees_;
  for (const QString &cachee : restantes) categories += cachee + u'*';
  return categories.isEmpty() ? u""_s : u'*' + categories;
}

void GestionCategories::Completer(const QString &texte) {
  for (int i = 0; i < ui_->CboCat->count(); ++i) {
    const QString nom = ui_->CboCat->itemText(i);
    if (nom.left(texte.size()).trimmed().toUpper() != texte.toUpper()) continue;
    ui_->CboCat->setEditText(nom);
    break;
  }
  QLineEdit *champ = ui_->CboCat->lineEdit();
  champ->setSelection(static_cast<int>(texte.size()),
                      static_cast<int>(champ->text().size() - texte.size()));
}

void GestionCategories::Enregistrer() {
  boites_->Information(
      u"L'enregistrement d'une nouvelle catégorie ne peut être effective\n"
      "que si elle contient au moins un Velmira.\n\n"
      "Dans le cas contraire, elle ne sera pas créée."_s);
  const QString nom = ui_->CboCat->currentText();
  if (Listee(nom) != nullptr) {
    boites_->Information(u"Catégorie déjà listée !"_s);
    return;
  }
  if (nom.trimmed().isEmpty() || EstReservee(nom)) return;
  ui_->LstCat->addItem(nom);
  Listee(nom)->setSelected(true);
  ui_->LstCat->scrollToItem(Listee(nom));
  RemplirCombo(ListerCategories(*base_));
}

void GestionCategories::ModifierOuSupprimer() {
  const QString nom = ui_->CboCat->currentText();
  if (nom.isEmpty()) {
    boites_->Information(u"Sélectionnez une catégorie dans la liste déroulante."_s);
    return;
  }
  if (EstReservee(nom)) {
    boites_->Information(u"Cette catégorie ne peut être modifiée."_s);
    return;
  }
  const QString haut = nom.toUpper();
  switch (boites_->QuestionAnnulable(Boites::Titre(),
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
  if (boites_->Question(Boites::Titre(), u"Supprimer \""_s + nom + u"\" ?"_s,
                        Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  Balayer(u"suppression"_s, nom,
          [&nom](const QString &categories) { return SansCategorie(categories, nom); });
}

void GestionCategories::Balayer(const QString &genre, const QString &nom,
                                const RegleCategories &regle) {
  {
    const Sablier sablier;
    const Acte acte(*base_, u"%1 de la catégorie « %2 »"_s.arg(genre, nom));
    TableAdresse(*base_).ChangerCategories(nom, regle);
  }
  QString marquees = Marquees();
  Remplir();  // a failure leaves the marks beside what was shown
  for (QString *categories : {&montrees_, &marquees})
    if (categories->contains(nom)) *categories = regle(*categories);
  for (const QString &nouvelle : Noms(marquees))  // one that no record holds yet
    if (Listee(nouvelle) == nullptr && EstEnregistree(nouvelle)) ui_->LstCat->addItem(nouvelle);
  Marquer(marquees);
  changees_(regle);
}

void GestionCategories::Renommer(const QString &nom) {
  ui_->CboCat->setEditText(u""_s);
  const auto nouveau = boites_->Saisie(Boites::Titre(), u"Faites votre modification :"_s, nom);
  if (!nouveau || nouveau->trimmed().isEmpty()) return;
  if (!EstEnregistree(*nouveau)) {
    boites_->Information(
        u"Le nom « %1 » est réservé au programme.\nLa catégorie garde le sien : choisissez-en un autre."_s
            .arg(*nouveau));
    return;
  }
  Balayer(u"renommage"_s, nom,
          [&](QString categories) { return categories.replace(nom, *nouveau); });
  ui_->LstCat->setFocus();
}
