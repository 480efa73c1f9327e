#include "directory/FrmNewMod.h"

#include "directory/GestionCategories.h"
#include "directory/Telephone.h"
#include "envelope/FrmCP.h"
#include "platform/Saisie.h"
#include "storage/Tables.h"
#include "ui/Debrancher.h"
#include "ui/Garde.h"
#include "ui/SelectionAuFocus.h"
#include "ui_FrmNewMod.h"

#include <QCalendarWidget>
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
  txt_ = {ui_->Txt_0, ui_->Txt_1, ui_->Txt_2, ui_->Txt_3, ui_->Txt_4, ui_->Txt_5, ui_->Txt_6};
  Boites &boites = session_.plateforme.boites;
  ui_->CboTitre->Relier(boites, session_.dossiers.AppPath, ui_->Txt_0);
  ui_->CboVille->Relier(boites, session_.base, ui_->Txt_5);
  categories_ = std::make_unique<GestionCategories>(
      boites, session_.base,
      GestionCategories::Controles{ui_->CboCat, ui_->LstCat, ui_->CmdEnrCat, ui_->CmdModSup},
      contexte_.categoriesChangees);
  ui_->Opt_0->setChecked(true);
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
  brancher(ui_->CmdCP, [this] { ChercherCode(); });
  brancher(ui_->CmdPurge, [this] {
    session_.plateforme.boites.Information(
        u"Chaque nouvelle entrée, écrite dans le zone de saisie de la liste,\n"
        "est systématiquement enregistrée quand on déroule la liste.\n\n"
        "Pour supprimer une entrée de la liste déroulante, il faut :\n\n"
        "o - La sélectionner,\n"
        "o - Puis appuyer sur le bouton SUPPR (ou DEL) du clavier."_s);
  });
  connect(ui_->Image3, &QToolButton::clicked, ui_->Opt_0, [this] { ui_->Opt_0->setChecked(true); });
  connect(ui_->Image2, &QToolButton::clicked, ui_->Opt_1, [this] { ui_->Opt_1->setChecked(true); });
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
  const std::array textes{&f.Ligne1, &f.Ligne2,     &f.Ligne3, &f.Ligne4,
                          &f.Ligne5, &f.CodePostal, &f.Pays};
  for (std::size_t i = 0; i < txt_.size(); ++i) txt_[i]->setText(*textes[i]);
  ui_->CboVille->setEditText(f.Ville);
  (f.OptionAdresse == 0 ? ui_->Opt_0 : ui_->Opt_1)->setChecked(true);
  categories_->Marquer(f.Categories);
  // A person who stands among those of the alerts cannot be added a second time from here.
  ui_->ChkAl->setChecked(f.AlerteActive);
  ui_->ChkAl->setEnabled(!f.AlerteActive);
  ui_->LblAl->setEnabled(!f.AlerteActive);
  photo_ = f.Photo.isNull() ? u""_s : f.Photo;
}

void FrmNewMod::Valider() {
  Boites &boites = session_.plateforme.boites;
  const QString nom = ui_->txtName->text();
  if (nom.contains(u'"')) {
    boites.Information(u" Le caractère \" est interdit !"_s);
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
  saisie_ = {.NomSaisi = ui_->txtName->text(),
             .MailSaisi = ui_->TxtMail->text(),
             .WebSaisi = ui_->TxtWeb->text(),
             .TelSaisi = ui_->TxtPhone->text(),
             .FaxSaisi = ui_->TxtFax->text(),
             .PortableSaisi = ui_->TxtPort->text(),
             .TelTravailSaisi = ui_->TxtPhoneT->text(),
             .CategoriesSaisies = categories_->Marquees(),
             .DDNSaisie = ui_->TxtDN->text(),
             .LigneSaisie = {txt_[0]->text(), txt_[1]->text(), txt_[2]->text(), txt_[3]->text(),
                             txt_[4]->text()},
             .CodePostalSaisi = txt_[5]->text(),
             .VilleSaisie = ui_->CboVille->currentText(),
             .PaysSaisi = txt_[6]->text(),
             .OptionSaisie = static_cast<quint8>(ui_->Opt_0->isChecked() ? 0 : 1),
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

void FrmNewMod::ChoisirPhoto() {
  photo_ = session_.plateforme.boites.Fichier(u"Photo"_s, session_.dossiers.AppPath + u"/Photos"_s,
                                              u"Images (*.jpg *.jpeg *.png *.bmp *.ico)"_s);
}

void FrmNewMod::ChercherCode() {
  ui_->Txt_5->clear();
  ui_->CboVille->setEditText(u""_s);
  FrmCP dialogue(session_.plateforme.boites, session_.dossiers.AppPath, this);
  if (dialogue.exec() != QDialog::Accepted || dialogue.Ligne().isEmpty()) return;
  ui_->Txt_5->setText(FrmCP::Code(dialogue.Ligne()));
  ui_->CboVille->setEditText(FrmCP::Ville(dialogue.Ligne()));
}
