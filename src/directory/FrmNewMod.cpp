#include "directory/FrmNewMod.h"

#include "address/MiseEnLignes.h"
#include "address/NomsProposes.h"
#include "platform/Saisie.h"
#include "storage/Conflits.h"
#include "storage/Noms.h"
#include "storage/Tables.h"
#include "storage/Telephone.h"
#include "ui/Abandon.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/DebutVisible.h"
#include "ui/EchelleProgramme.h"
#include "ui/Guillemet.h"
#include "ui/PropositionAuFocus.h"
#include "ui/Sablier.h"
#include "ui/SelectionAuFocus.h"
#include "ui/ZoneAuBesoin.h"
#include "ui_FrmNewMod.h"

#include <QCalendarWidget>
#include <QDir>
#include <QEvent>
#include <QImageReader>
#include <QUrl>

#include <algorithm>
#include <array>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

const QString kDebutWeb = u"http://www."_s;

/// All that can be read here, and the kinds of picture that are the most usual.
QString FiltrePhotos() {
  QStringList genres;
  for (const QByteArray &genre : QImageReader::supportedImageFormats())
    genres.append(u"*."_s + QString::fromLatin1(genre));
  return u"Images (%1);;Images (*.jpg *.bmp *.ico)"_s.arg(genres.join(u' '));
}

}  // namespace

FrmNewMod::FrmNewMod(Session &session, const QString &titre, Contexte contexte, QWidget *parent)
    : QDialog(parent),
      session_(session),
      contexte_(std::move(contexte)),
      ui_(std::make_unique<Ui::FrmNewMod>()) {
  ui_->setupUi(this);
  setWindowTitle(titre);
  ui_->DTP->calendarWidget()->setLocale(session_.plateforme.langue);
  Boites &boites = session_.plateforme.boites;
  constexpr int kGris = 242;  // of the field that has the focus
  ui_->Champs->Relier(boites, session_.base, session_.dossiers.AppPath, kGris, u"Image3"_s);
  if (session_.reglages.norme.Active) ui_->Champs->SuivreNorme();
  ui_->Categories->Relier(boites, session_.plateforme.horloge, session_.base,
                          contexte_.categoriesChangees);
  // Nothing of a stored field is cut by being shown.
  for (const Champ &champ : Champs()) {
    champ.ligne->setMaxLength(std::numeric_limits<int>::max());
    new DebutVisible(champ.ligne);
  }
  ui_->TxtDN->setMinimumWidth(fontMetrics().horizontalAdvance(u"00/00/0000000"_s));
  GarderTaille(ui_->TxtDN);
  Brancher();
}

FrmNewMod::~FrmNewMod() {
  DebrancherEnfants(*this);
}

void FrmNewMod::Brancher() {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->CmdOK, &FrmNewMod::Valider);
  brancher(ui_->CmdAnnule, &FrmNewMod::Abandonner);
  brancher(ui_->CmdPhoto, &FrmNewMod::ChoisirPhoto);
  brancher(ui_->ImgPhoto, &Portrait::Depose, &FrmNewMod::PrendreDepot);
  brancher(ui_->CmdEnregistre, &FrmNewMod::ImprimerPuisValider);
  connect(ui_->Label5, &QToolButton::clicked, this, [this] {
    session_.plateforme.boites.Information(
        u"La photo est un fichier d'image (jpg, png, bmp, ico...), montré avec la fiche. Vous "
        u"pouvez "
        "aussi la déposer ici depuis le gestionnaire de fichiers.\n\n"
        "Rangez-la de préférence dans le dossier « Photos » du programme :\n"_s +
        QDir::toNativeSeparators(session_.dossiers.Photos()) +
        u"\n\nPour retirer une photo, cliquez sur « Photo... » puis sur « Annuler », et confirmez."_s);
  });
  BrancherNoms();
  connect(ui_->Champs, &ChampsAdresse::Changee, this, &FrmNewMod::MontrerApercu);
  MontrerApercu();
  for (QLineEdit *champ : {ui_->TxtWeb, ui_->TxtDN}) champ->installEventFilter(this);
  connect(ui_->DTP, &ChoixDate::Choisie, this,
          [this](QDate jour) { ui_->TxtDN->setText(EcritureDate(jour)); });
}

void FrmNewMod::BrancherNoms() {
  new SelectionAuFocus(ui_->txtName);
  nomPropose_ = new PropositionAuFocus(ui_->txtName, [this] {
    return ui_->txtName->text().isEmpty()
               ? NomPourListe(ui_->Champs->Adresse().lignes[0], ui_->Champs->Titres())
               : QString();
  });
  ui_->Champs->ProposerNom([this] { return NomPourEnveloppe(ui_->txtName->text()); });
}

void FrmNewMod::MontrerApercu() {
  QString lignes =
      MettreEnLignes(ComposerAdresse(ui_->Champs->Adresse()), Role::Destinataire, session_.reglages)
          .texte;
  ui_->LblApercu->setText(lignes.replace(u'*', u'\n'));
}

QList<FrmNewMod::Champ> FrmNewMod::Champs() const {
  return {{ui_->txtName, &Correspondant::NomVelmira},   {ui_->TxtPhone, &Correspondant::Tel},
          {ui_->TxtPhoneT, &Correspondant::TelTravail}, {ui_->TxtPort, &Correspondant::Portable},
          {ui_->TxtFax, &Correspondant::Fax},           {ui_->TxtMail, &Correspondant::Mail},
          {ui_->TxtWeb, &Correspondant::Web},           {ui_->TxtDN, &Correspondant::DDN}};
}

void FrmNewMod::Montrer(const Correspondant &fiche) {
  saisie_ = {.montree = fiche, .fiche = fiche};
  photo_ = fiche.Photo;
  MontrerPhoto(photo_);
  for (const auto &[ligne, texte] : Champs()) ligne->setText(fiche.*texte);
  MontrerNaissance();
  ui_->ChkR_0->setChecked(fiche.ListeRougeTel);
  ui_->ChkR_1->setChecked(fiche.ListeRougeTravail);
  ui_->ChkDP->setChecked(!fiche.DataProt.isEmpty());
  ui_->Champs->Montrer(AdresseSaisie::De(fiche));
  ui_->Categories->Montrer(fiche.Categories);
  // A person who stands among those of the alerts cannot be added a second time from here.
  ui_->ChkAl->setChecked(fiche.AlerteActive);
  ui_->ChkAl->setEnabled(!fiche.AlerteActive);
  ui_->LblAl->setEnabled(!fiche.AlerteActive);
  depart_ = Formulaire();
}

void FrmNewMod::ProposerImpression(std::function<void(const Correspondant &)> imprimer) {
  imprimer_ = std::move(imprimer);
  ui_->CmdEnregistre->setEnabled(true);
  ui_->CmdEnregistre->show();
}

void FrmNewMod::ImprimerPuisValider() {
  if (!ui_->Champs->Accepter()) return;
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
                        u"Vous n'avez pas entré de nom !\nDésirez-vous annuler?"_s,
                        Boites::Reponse::Non) == Boites::Reponse::Oui)
      Abandonner();
    else
      ui_->txtName->setFocus();
    return;
  }
  if (!ui_->Champs->Accepter()) return;
  Prendre();
  saisie_.acceptee = !EstSansNom(nom);
  accept();
}

void FrmNewMod::Prendre() {
  FormaterNumeros();
  QuitterChamp(ui_->TxtDN);
  QuitterChamp(ui_->TxtWeb);
  saisie_.montree.Categories = ui_->Categories->Montrees();
  saisie_.fiche = saisie_.montree;
  const Correspondant formulaire = Formulaire();
  Recopier(saisie_.fiche, formulaire, Comparer(depart_, formulaire, formulaire).changees);
  saisie_.fiche.Categories = ui_->Categories->Marquees();
  saisie_.AjoutAlerte = ui_->ChkAl->isEnabled() && ui_->ChkAl->isChecked();
}

Correspondant FrmNewMod::Formulaire() const {
  Correspondant fiche;
  for (const auto &[ligne, texte] : Champs()) fiche.*texte = ligne->text();
  fiche.ListeRougeTel = ui_->ChkR_0->isChecked();
  fiche.ListeRougeTravail = ui_->ChkR_1->isChecked();
  fiche.DataProt = MarqueDeProtection();
  fiche.Photo = photo_;
  ui_->Champs->Adresse().Reporter(fiche);
  return fiche;
}

void FrmNewMod::FormaterNumeros() {
  const std::array numeros{&Correspondant::Tel, &Correspondant::Fax, &Correspondant::Portable,
                           &Correspondant::TelTravail};
  for (const auto &[ligne, texte] : Champs())
    if (std::ranges::find(numeros, texte) != numeros.end() && ligne->text() != depart_.*texte)
      ligne->setText(FormatTelephone(ligne->text(), session_.reglages.SeparateurTel));
}

QString FrmNewMod::MarqueDeProtection() const {
  if (!ui_->ChkDP->isChecked()) return u""_s;
  const QString &utilisateur = session_.plateforme.utilisateur;
  return contexte_.protegesMasques ? utilisateur : utilisateur + u'$';
}

bool FrmNewMod::EstTouchee() {
  QuitterChamp(ui_->TxtWeb);  // which begins a page by itself
  Correspondant formulaire = Formulaire();
  if (nomPropose_->EstIntacte()) formulaire.NomVelmira = depart_.NomVelmira;
  if (ui_->Champs->NomSeulementPropose()) formulaire.Ligne1 = depart_.Ligne1;
  return Comparer(depart_, formulaire, formulaire).changees.any() ||
         ui_->Categories->Marquees() != ui_->Categories->Montrees() ||
         ui_->ChkAl->isChecked() != saisie_.montree.AlerteActive;
}

void FrmNewMod::reject() {
  if (PeutAbandonner(session_.plateforme.boites, EstTouchee())) Abandonner();
}

void FrmNewMod::Abandonner() {
  saisie_.acceptee = false;
  QDialog::reject();
}

void FrmNewMod::showEvent(QShowEvent *evenement) {
  ZoneAuBesoin::TenirDansLEcran(*this, *evenement, {ui_->Corps});
  QDialog::showEvent(evenement);
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
  const QString web = ui_->TxtWeb->text(), date = ui_->TxtDN->text();
  if (champ == ui_->TxtWeb && web == kDebutWeb && web != depart_.Web) ui_->TxtWeb->clear();
  if (champ != ui_->TxtDN) return;
  if (date != depart_.DDN) ui_->TxtDN->setText(EcritureDate(DateSaisie(date)));
  MontrerNaissance();
}

void FrmNewMod::MontrerNaissance() {
  const QDate naissance = DateSaisie(ui_->TxtDN->text());
  ui_->DTP->Montrer(naissance, session_.plateforme.horloge.Maintenant().date());
}

void FrmNewMod::ChoisirPhoto() {
  const QString chemin =
      session_.plateforme.boites.Fichier(u"Photo"_s, session_.dossiers.Photos(), FiltrePhotos());
  if (chemin.isEmpty())
    ProposerRetrait();
  else
    PrendrePhoto(chemin);
}

void FrmNewMod::ProposerRetrait() {
  if (photo_.isEmpty() ||
      session_.plateforme.boites.Question(Boites::Titre(), u"Retirer la photo ?"_s,
                                          Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  photo_ = u""_s;
  MontrerPhoto(photo_);
}

void FrmNewMod::PrendrePhoto(const QString &chemin) {
  if (ui_->ImgPhoto->Montrer(chemin)) {
    photo_ = chemin;
    return;
  }
  MontrerPhoto(photo_);
  session_.plateforme.boites.Attention(
      u"« %1 » n'est pas une image que Velmira peut lire : la photo de la fiche n'a pas changé."_s
          .arg(QDir::toNativeSeparators(chemin)));
}

void FrmNewMod::PrendreDepot(const QList<QUrl> &adresses) {
  if (adresses.size() == 1 && adresses.constFirst().isLocalFile())
    PrendrePhoto(adresses.constFirst().toLocalFile());
  else
    session_.plateforme.boites.Attention(
        u"Déposez ici un seul fichier d'image de cet ordinateur : la photo de la fiche n'a pas "
        "changé."_s);
}

void FrmNewMod::MontrerPhoto(const QString &chemin) {
  if (chemin.isEmpty())
    ui_->ImgPhoto->setText(u"Aucune\nphoto"_s);
  else if (!ui_->ImgPhoto->Montrer(chemin))
    ui_->ImgPhoto->setText(u"Photo\nnon lisible"_s);
}
