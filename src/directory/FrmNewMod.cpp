#include "directory/FrmNewMod.h"

#include "directory/GestionCategories.h"
#include "platform/Saisie.h"
#include "storage/Tables.h"
#include "storage/Telephone.h"
#include "ui/Bulle.h"
#include "ui/Debrancher.h"
#include "ui/Garde.h"
#include "ui/Guillemet.h"
#include "ui/SelectionAuFocus.h"
#include "ui_FrmNewMod.h"

#include <QCalendarWidget>
#include <QDir>
#include <QEvent>

using namespace Qt::StringLiterals;

namespace {

const QString kDebutWeb = u"http://www."_s;

}  // namespace

FrmNewMod::FrmNewMod(Session &session, const QString &titre, Contexte contexte, QWidget *parent)
    : QDialog(parent),
      session_(session),
      contexte_(std::move(contexte)),
      ui_(std::make_unique<Ui::FrmNewMod>()) {
  ui_->setupUi(this);
  setWindowTitle(titre);
  Boites &boites = session_.plateforme.boites;
  constexpr int kGris = 242;  // of the field that has the focus
  ui_->Champs->Relier(boites, session_.base, session_.dossiers.AppPath, kGris, u"Image3"_s);
  categories_ = std::make_unique<GestionCategories>(
      boites, session_.base,
      GestionCategories::Controles{ui_->CboCat, ui_->LstCat, ui_->CmdEnrCat, ui_->CmdModSup},
      contexte_.categoriesChangees);
  ui_->DTP->setDate(session_.plateforme.horloge.Maintenant().date());
  Brancher();
}

FrmNewMod::~FrmNewMod() {
  DebrancherEnfants(*this);
}

void FrmNewMod::Brancher() {
  Boites &boites = session_.plateforme.boites;
  const auto brancher = [this, &boites](QPushButton *bouton, auto commande) {
    connect(bouton, &QPushButton::clicked, this, Garde(boites, [commande](bool) { commande(); }));
  };
  brancher(ui_->CmdOK, [this] { Valider(); });
  brancher(ui_->CmdAnnule, [this] { reject(); });
  brancher(ui_->CmdPhoto, [this] { ChoisirPhoto(); });
  connect(ui_->Label5, &QToolButton::clicked, this, [this] {
    session_.plateforme.boites.Information(
        u"La photo est un fichier d'image (jpg, bmp ou ico), montré avec la fiche.\n\n"
        "Rangez-la de préférence dans le dossier « Photos » du programme :\n"_s +
        QDir::toNativeSeparators(DossierPhotos()) +
        u"\n\nPour retirer une photo, cliquez sur « Photo... » puis sur « Annuler »."_s);
  });
  brancher(ui_->CmdEnregistre, [this] { ImprimerPuisValider(); });
  PoserBulle(ui_->CmdEnrCat, session_.plateforme.horloge,
             {u"Enregistrer\nla nouvelle catégorie"_s, kBulleJaune});
  PoserBulle(ui_->CmdModSup, session_.plateforme.horloge,
             {u"Supprimer ou modifier\nla catégorie sélectionnée"_s, kBulleJaune});
  new SelectionAuFocus(ui_->txtName);
  for (QLineEdit *champ : {ui_->TxtWeb, ui_->TxtDN}) champ->installEventFilter(this);
  const auto choisir = [this](QDate jour) { ui_->TxtDN->setText(jour.toString(u"dd/MM/yyyy"_s)); };
  connect(ui_->DTP, &QDateEdit::userDateChanged, this, choisir);
  // Also the day that it shows already.
  connect(ui_->DTP->calendarWidget(), &QCalendarWidget::clicked, this, choisir);
}

void FrmNewMod::Montrer(const Correspondant &f) {
  ui_->txtName->setText(f.NomVelmira);
  ui_->TxtPhone->setText(f.Tel);
  ui_->TxtFax->setText(f.Fax);
  ui_->TxtMail->setText(f.Mail);
  ui_->TxtPort->setText(f.Portable);
  ui_->TxtPhoneT->setText(f.TelTravail);
  ui_->TxtWeb->setText(f.Web);
  ui_->ChkR_0->setChecked(f.ListeRougeTel);
  ui_->ChkR_1->setChecked(f.ListeRougeTravail);
  ui_->TxtDN->setText(f.DDN);
  ui_->ChkDP->setChecked(!f.DataProt.isEmpty());
  ui_->Champs->Montrer(AdresseSaisie::De(f));
  categories_->Marquer(f.Categories);
  // A person who stands among those of the alerts cannot be added a second time from here.
  ui_->ChkAl->setChecked(f.AlerteActive);
  ui_->ChkAl->setEnabled(!f.AlerteActive);
  ui_->LblAl->setEnabled(!f.AlerteActive);
  photo_ = f.Photo.isNull() ? u""_s : f.Photo;
}

void FrmNewMod::ProposerImpression(std::function<void(const Correspondant &)> imprimer) {
  imprimer_ = std::move(imprimer);
  ui_->CmdEnregistre->setEnabled(true);
  ui_->CmdEnregistre->show();
}

void FrmNewMod::ImprimerPuisValider() {
  Prendre();
  Correspondant fiche;
  saisie_.Reporter(fiche);
  imprimer_(fiche);
  Valider();
}

void FrmNewMod::Valider() {
  Boites &boites = session_.plateforme.boites;
  const QString nom = ui_->txtName->text();
  if (RefuserGuillemet(boites, nom)) {
    ui_->txtName->setText(QString(nom).remove(u'"'));
    ui_->txtName->setFocus();
    return;
  }
  if (nom.isEmpty()) {
    if (boites.Question(u"Répertoire inchangé"_s,
                        u"Vous n'avez pas entré de nom !\nDésirez-vous annuler?"_s) ==
        Boites::Reponse::Oui)
      reject();
    else
      ui_->txtName->setFocus();
    return;
  }
  Prendre();
  if (!saisie_.VilleSaisie.isEmpty())
    TableVille(session_.base).Enregistrer(saisie_.VilleSaisie, saisie_.CodePostalSaisi);
  accept();
}

void FrmNewMod::Prendre() {
  for (QLineEdit *numero : {ui_->TxtPhone, ui_->TxtFax, ui_->TxtPort, ui_->TxtPhoneT})
    numero->setText(FormatTelephone(numero->text(), session_.reglages.SeparateurTel));
  QuitterChamp(ui_->TxtDN);
  QuitterChamp(ui_->TxtWeb);
  const AdresseSaisie adresse = ui_->Champs->Adresse();
  saisie_ = {.NomSaisi = ui_->txtName->text(),
             .MailSaisi = ui_->TxtMail->text(),
             .WebSaisi = ui_->TxtWeb->text(),
             .TelSaisi = ui_->TxtPhone->text(),
             .FaxSaisi = ui_->TxtFax->text(),
             .PortableSaisi = ui_->TxtPort->text(),
             .TelTravailSaisi = ui_->TxtPhoneT->text(),
             .CategoriesSaisies = categories_->Marquees(),
             .DDNSaisie = ui_->TxtDN->text(),
             .LigneSaisie = adresse.lignes,
             .CodePostalSaisi = adresse.codePostal,
             .VilleSaisie = adresse.ville,
             .PaysSaisi = adresse.pays,
             .OptionSaisie = static_cast<quint8>(adresse.optionCP),
             .RougeTelSaisi = ui_->ChkR_0->isChecked(),
             .RougeTravailSaisi = ui_->ChkR_1->isChecked(),
             .DataProtSaisie = MarqueDeProtection(),
             .AjoutAlerte = ui_->ChkAl->isEnabled() && ui_->ChkAl->isChecked(),
             .PhotoSaisie = photo_};
}

QString FrmNewMod::MarqueDeProtection() const {
  if (!ui_->ChkDP->isChecked()) return u""_s;
  const QString &utilisateur = session_.plateforme.utilisateur;
  return contexte_.protegesMasques ? utilisateur : utilisateur + u'$';
}

void FrmNewMod::reject() {
  saisie_ = {};
  QDialog::reject();
}

bool FrmNewMod::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::FocusIn && objet == ui_->TxtWeb &&
      ui_->TxtWeb->text().isEmpty()) {
    ui_->TxtWeb->event(evenement);  // first, since it may select the text
    ui_->TxtWeb->setText(kDebutWeb);
    return true;
  }
  if (evenement->type() == QEvent::FocusOut) QuitterChamp(objet);
  return QDialog::eventFilter(objet, evenement);
}

void FrmNewMod::QuitterChamp(const QObject *champ) {
  if (champ == ui_->TxtWeb && ui_->TxtWeb->text() == kDebutWeb) ui_->TxtWeb->clear();
  if (champ == ui_->TxtDN && !DateSaisie(ui_->TxtDN->text()).isValid()) ui_->TxtDN->clear();
}

QString FrmNewMod::DossierPhotos() const {
  return session_.dossiers.AppPath + u"/Photos"_s;
}

void FrmNewMod::ChoisirPhoto() {
  photo_ = session_.plateforme.boites.Fichier(u"Photo"_s, DossierPhotos(),
                                              u"Images (*.jpg *.bmp *.ico)"_s);
}
