#include "directory/FrmNewMod.h"

#include "platform/Saisie.h"
#include "storage/Tables.h"
#include "storage/Telephone.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
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
  ui_->Categories->Relier(boites, session_.plateforme.horloge, session_.base,
                          contexte_.categoriesChangees);
  ui_->DTP->setDate(session_.plateforme.horloge.Maintenant().date());
  Brancher();
}

FrmNewMod::~FrmNewMod() {
  DebrancherEnfants(*this);
}

void FrmNewMod::Brancher() {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->CmdOK, &FrmNewMod::Valider);
  brancher(ui_->CmdAnnule, &FrmNewMod::reject);
  brancher(ui_->CmdPhoto, &FrmNewMod::ChoisirPhoto);
  brancher(ui_->CmdEnregistre, &FrmNewMod::ImprimerPuisValider);
  connect(ui_->Label5, &QToolButton::clicked, this, [this] {
    session_.plateforme.boites.Information(
        u"La photo est un fichier d'image (jpg, bmp ou ico), montré avec la fiche.\n\n"
        "Rangez-la de préférence dans le dossier « Photos » du programme :\n"_s +
        QDir::toNativeSeparators(session_.dossiers.Photos()) +
        u"\n\nPour retirer une photo, cliquez sur « Photo... » puis sur « Annuler »."_s);
  });
  new SelectionAuFocus(ui_->txtName);
  for (QLineEdit *champ : {ui_->TxtWeb, ui_->TxtDN}) champ->installEventFilter(this);
  const auto choisir = [this](QDate jour) { ui_->TxtDN->setText(jour.toString(u"dd/MM/yyyy"_s)); };
  connect(ui_->DTP, &QDateEdit::userDateChanged, this, choisir);
  // Also the day that it shows already.
  connect(ui_->DTP->calendarWidget(), &QCalendarWidget::clicked, this, choisir);
}

QList<FrmNewMod::Champ> FrmNewMod::Champs() const {
  return {{ui_->txtName, &Correspondant::NomVelmira},   {ui_->TxtPhone, &Correspondant::Tel},
          {ui_->TxtPhoneT, &Correspondant::TelTravail}, {ui_->TxtPort, &Correspondant::Portable},
          {ui_->TxtFax, &Correspondant::Fax},           {ui_->TxtMail, &Correspondant::Mail},
          {ui_->TxtWeb, &Correspondant::Web},           {ui_->TxtDN, &Correspondant::DDN}};
}

void FrmNewMod::Montrer(const Correspondant &fiche) {
  saisie_ = {.fiche = fiche};
  if (fiche.Photo.isNull()) saisie_.fiche.Photo = u""_s;
  for (const auto &[ligne, texte] : Champs()) ligne->setText(fiche.*texte);
  ui_->ChkR_0->setChecked(fiche.ListeRougeTel);
  ui_->ChkR_1->setChecked(fiche.ListeRougeTravail);
  ui_->ChkDP->setChecked(!fiche.DataProt.isEmpty());
  ui_->Champs->Montrer(AdresseSaisie::De(fiche));
  ui_->Categories->Marquer(fiche.Categories);
  // A person who stands among those of the alerts cannot be added a second time from here.
  ui_->ChkAl->setChecked(fiche.AlerteActive);
  ui_->ChkAl->setEnabled(!fiche.AlerteActive);
  ui_->LblAl->setEnabled(!fiche.AlerteActive);
}

void FrmNewMod::ProposerImpression(std::function<void(const Correspondant &)> imprimer) {
  imprimer_ = std::move(imprimer);
  ui_->CmdEnregistre->setEnabled(true);
  ui_->CmdEnregistre->show();
}

void FrmNewMod::ImprimerPuisValider() {
  Prendre();
  imprimer_(saisie_.fiche);
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
  saisie_.acceptee = !nom.trimmed().isEmpty();
  if (const Correspondant &fiche = saisie_.fiche; !fiche.Ville.isEmpty())
    TableVille(session_.base).Enregistrer(fiche.Ville, fiche.CodePostal);
  accept();
}

void FrmNewMod::Prendre() {
  for (QLineEdit *numero : {ui_->TxtPhone, ui_->TxtFax, ui_->TxtPort, ui_->TxtPhoneT})
    numero->setText(FormatTelephone(numero->text(), session_.reglages.SeparateurTel));
  QuitterChamp(ui_->TxtDN);
  QuitterChamp(ui_->TxtWeb);
  Correspondant &fiche = saisie_.fiche;
  for (const auto &[ligne, texte] : Champs()) fiche.*texte = ligne->text();
  fiche.ListeRougeTel = ui_->ChkR_0->isChecked();
  fiche.ListeRougeTravail = ui_->ChkR_1->isChecked();
  fiche.DataProt = MarqueDeProtection();
  ui_->Champs->Adresse().Reporter(fiche);
  fiche.Categories = ui_->Categories->Marquees();
  saisie_.AjoutAlerte = ui_->ChkAl->isEnabled() && ui_->ChkAl->isChecked();
}

QString FrmNewMod::MarqueDeProtection() const {
  if (!ui_->ChkDP->isChecked()) return u""_s;
  const QString &utilisateur = session_.plateforme.utilisateur;
  return contexte_.protegesMasques ? utilisateur : utilisateur + u'$';
}

void FrmNewMod::reject() {
  saisie_.acceptee = false;
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

void FrmNewMod::ChoisirPhoto() {
  saisie_.fiche.Photo = session_.plateforme.boites.Fichier(u"Photo"_s, session_.dossiers.Photos(),
                                                           u"Images (*.jpg *.bmp *.ico)"_s);
}
