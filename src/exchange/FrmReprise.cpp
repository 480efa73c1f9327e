#include "exchange/FrmReprise.h"

#include "address/Titres.h"
#include "exchange/ColonnesRetenues.h"
#include "exchange/FichiersRegardes.h"
#include "exchange/TextesReprise.h"
#include "platform/Enumeration.h"
#include "session/SauvegardePrealable.h"
#include "storage/Historique.h"
#include "ui/Abandon.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/Grandir.h"
#include "ui/Icones.h"
#include "ui/Travail.h"
#include "ui_FrmReprise.h"

#include <QDir>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QScopeGuard>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

static constexpr qsizetype kParagraphes = 4;  ///< in a box, which has to stay on the screen

FrmReprise::FrmReprise(Session &session, bool annulable, QWidget *parent)
    : QDialog(parent),
      session_(session),
      annulable_(annulable),
      ui_(std::make_unique<Ui::FrmReprise>()),
      dossier_(QStandardPaths::writableLocation(QStandardPaths::DownloadLocation)) {
  constexpr int kDepart = 64;
  ui_->setupUi(this);
  ui_->Pages->layout()->setSpacing(0);
  if (parent == nullptr) setWindowFlags(Qt::Window);
  setWindowIcon(IconeProgramme());
  setAcceptDrops(true);
  PoserIcone(ui_->IcoDepart, Icone(u"document-import"), kDepart);
  Grandir(ui_->LblDepart, 1.4, true);
  ui_->CmdChoisir->setIcon(Icone(u"document-open"));
  for (QWidget *page :
       {static_cast<QWidget *>(ui_->OngletColonnes), static_cast<QWidget *>(ui_->OngletSavoir)})
    ui_->Onglets->setTabVisible(ui_->Onglets->indexOf(page), false);
  ui_->Onglets->installEventFilter(this);
  Brancher();
  Recommencer();
}

FrmReprise::~FrmReprise() {
  DebrancherEnfants(*this);
}

void FrmReprise::Brancher() {
  Boites &boites = session_.plateforme.boites;
  const Brancheur brancher(boites, this);
  brancher(ui_->CmdChoisir, &FrmReprise::ChoisirFichiers);
  brancher(ui_->Fichiers, &ListeFichiers::AjoutDemande, &FrmReprise::ChoisirFichiers);
  brancher(ui_->Fichiers, &ListeFichiers::RetraitDemande, &FrmReprise::Retirer);
  brancher(ui_->CmdReprendre, &FrmReprise::Reprendre);
  brancher(ui_->CmdEnregistrer, &FrmReprise::Enregistrer);
  brancher(ui_->CmdAutres, &FrmReprise::Recommencer);
  connect(ui_->CmdFermer, &QPushButton::clicked, this, &QDialog::reject);
  brancher(ui_->Fichiers, &ListeFichiers::Change, [this] {
    if (colonnes_)
      Etudier();
    else
      MontrerFichier();
  });
  brancher(ui_->Onglets, &QTabWidget::currentChanged, [this] {
    if (colonnes_ && ui_->Onglets->currentWidget() != ui_->OngletColonnes) Etudier();
  });
  ui_->OngletApercu->Relier(session_);
  ui_->OngletColonnes->Relier(boites);
  ui_->OngletDeja->Relier(boites);
  brancher(ui_->OngletColonnes, &PageColonnes::Changees, &FrmReprise::ChangerColonnes);
  connect(ui_->OngletDeja, &PageDeja::Repondu, this, &FrmReprise::MajBoutons);
}

void FrmReprise::dragEnterEvent(QDragEnterEvent *evenement) {
  if (!evenement->mimeData()->hasUrls()) return;
  evenement->setDropAction(Qt::CopyAction);
  evenement->accept();
  ui_->PageDepart->Survoler(true);
}

void FrmReprise::dragLeaveEvent(QDragLeaveEvent *) {
  ui_->PageDepart->Survoler(false);
}

void FrmReprise::dropEvent(QDropEvent *evenement) {
  evenement->setDropAction(Qt::CopyAction);
  evenement->accept();
  ui_->PageDepart->Survoler(false);
  // Later: reading now would hold up the program that the files come from.
  QMetaObject::invokeMethod(
      this,
      Garde(session_.plateforme.boites,
            [this, adresses = evenement->mimeData()->urls()] { Deposer(adresses); }),
      Qt::QueuedConnection);
}

void FrmReprise::Deposer(const QList<QUrl> &adresses) {
  QStringList chemins, lointaines;
  for (const QUrl &adresse : adresses)
    if (adresse.isLocalFile())
      chemins.append(adresse.toLocalFile());
    else
      lointaines.append(
          u"« %1 » n'est pas un fichier de cet ordinateur. Copiez-le d'abord ici, "
          "puis recommencez."_s.arg(adresse.toDisplayString()));
  if (!lointaines.isEmpty())
    session_.plateforme.boites.Attention(Abreger(lointaines, kParagraphes).join(u"\n\n"_s));
  Ajouter(chemins);
}

bool FrmReprise::eventFilter(QObject *objet, QEvent *evenement) {
  // The toolkit's tabs keep to themselves that a page needs more room.
  if (objet == ui_->Onglets && evenement->type() == QEvent::LayoutRequest)
    ui_->Onglets->updateGeometry();
  return QDialog::eventFilter(objet, evenement);
}

UsagesReprise FrmReprise::Usages() const {
  return {session_.reglages.SeparateurTel, TitresLus(session_.dossiers.AppPath)};
}

void FrmReprise::ChoisirFichiers() {
  Ajouter(session_.plateforme.boites.Fichiers(
      u"Choisissez les fichiers à reprendre"_s, dossier_,
      u"Cartes, tableaux et anciennes bases (*.vcf *.vcard *.csv *.txt *.tsv *.mdb);;"
      "Tous les fichiers (*)"_s));
}

void FrmReprise::Ajouter(const QStringList &chemins) {
  const bool recommence = ui_->Pages->currentWidget() == ui_->Bilan;
  QStringList connus, nouveaux;
  if (!recommence)
    for (const FichierRepris &fichier : std::as_const(fichiers_)) connus.append(fichier.chemin);
  for (const QString &chemin : chemins)
    if (const QString entier = QFileInfo(chemin).absoluteFilePath();
        !connus.contains(entier) && !nouveaux.contains(entier))
      nouveaux.append(entier);
  if (nouveaux.isEmpty()) return;
  dossier_ = QFileInfo(nouveaux.constLast()).absolutePath();
  const QString &appPath = session_.dossiers.AppPath;
  const auto regardes =
      Travail(this, u"Lecture des fichiers"_s)
          .ExecuterOuLaisser(
              session_.plateforme.abandons,
              [nouveaux, regles = LireReglesCopie(appPath, session_.reglages.SeparateurTel)](
                  const Avance &avance, const std::stop_token &) {
                return RegarderFichiers(nouveaux, regles, avance);
              });
  if (!regardes || regardes->arrete) return;
  if (!regardes->refus.isEmpty())
    session_.plateforme.boites.Attention(Abreger(regardes->refus, kParagraphes).join(u"\n\n"_s));
  QList<FichierRepris> pris = regardes->fichiers;
  pris.removeIf([this](const FichierRepris &fichier) { return !Accepte(fichier); });
  for (FichierRepris &fichier : pris)
    if (fichier.genre == GenreFichier::Tableau)
      fichier.colonnes = ColonnesRetenues(appPath, fichier.forme);
  if (pris.isEmpty()) return;
  if (recommence) Recommencer();
  fichiers_ += pris;
  MontrerNouveaux(fichiers_.size() - pris.size());
}

void FrmReprise::MontrerNouveaux(qsizetype premier) {
  ui_->Fichiers->Montrer(fichiers_, {});
  ui_->Fichiers->Choisir(premier);
  AllerA(ui_->PageFichiers);
  Etudier();
  ui_->Onglets->setCurrentWidget(fichiers_[premier].SansNom()
                                     ? static_cast<QWidget *>(ui_->OngletColonnes)
                                     : ui_->OngletApercu);
}

bool FrmReprise::Accepte(const FichierRepris &fichier) {
  const QString constat = fichier.Constat();
  return constat.isEmpty() ||
         session_.plateforme.boites.Question(
             Boites::Titre(),
             u"L'ancienne base de données « %1 » est endommagée. Voici ce qui a pu en être lu :"
             "\n\n%2\n\nVoulez-vous reprendre cela ?"_s.arg(
                 QDir::toNativeSeparators(fichier.chemin), constat),
             Boites::Reponse::Non) == Boites::Reponse::Oui;
}

void FrmReprise::Retirer() {
  const qsizetype choisi = ui_->Fichiers->Choisi();
  if (choisi < 0) return;
  fichiers_.removeAt(choisi);
  if (fichiers_.isEmpty()) return Recommencer();
  ui_->Fichiers->Montrer(fichiers_, {});
  Etudier();
}

void FrmReprise::ChangerColonnes(const Correspondances &colonnes) {
  fichiers_[ui_->Fichiers->Choisi()].colonnes = colonnes;
  perimee_ = colonnes_ = true;
  MajBoutons();
}

void FrmReprise::Etudier() {
  perimee_ = true;
  ui_->LblEtude->setText(u"Lecture des fichiers..."_s);
  const auto montrer = qScopeGuard([this] { MontrerEtude(); });
  if (std::exchange(colonnes_, false))
    for (const FichierRepris &fichier : std::as_const(fichiers_))
      if (fichier.genre == GenreFichier::Tableau &&
          fichier.colonnes != ColonnesRetenues(session_.dossiers.AppPath, fichier.forme))
        RetenirColonnes(session_.dossiers.AppPath, fichier.forme, fichier.colonnes);
  EtudeReprise etude =
      Travail(this, u"Lecture des fichiers"_s)
          .Executer(session_.base, [&, usages = Usages()](Base &base, const Avance &avance) {
            return EtudierReprise(base, fichiers_, usages, session_.plateforme.utilisateur, avance);
          });
  if (etude.arretee) return;
  etude_ = std::move(etude);
  perimee_ = false;
}

void FrmReprise::MontrerEtude() {
  ui_->Fichiers->Montrer(fichiers_, perimee_ ? QList<EtudeReprise::DuFichier>() : etude_.fichiers);
  ui_->OngletDeja->Montrer(etude_.rencontres, etude_.tues);
  ui_->Onglets->setTabText(ui_->Onglets->indexOf(ui_->OngletDeja),
                           u"&Déjà là (%1)"_s.arg(etude_.rencontres.size() + etude_.tues));
  const qsizetype aSavoir = ui_->OngletSavoir->Montrer(etude_);
  ui_->Onglets->setTabText(ui_->Onglets->indexOf(ui_->OngletSavoir),
                           u"À sa&voir (%1)"_s.arg(aSavoir));
  MontrerOnglet(ui_->OngletSavoir, aSavoir > 0);  // behind its text, which wakes its key
  MontrerFichier();
  MajBoutons();
}

void FrmReprise::MontrerFichier() {
  const qsizetype choisi = ui_->Fichiers->Choisi();
  if (choisi < 0) return;
  const FichierRepris &fichier = fichiers_[choisi];
  QList<PersonneImportee> siennes = etude_.premieres;
  siennes.removeIf([&](const PersonneImportee &p) { return p.origine.fichier != fichier.chemin; });
  ui_->OngletApercu->Montrer(
      siennes,
      fichier.genre == GenreFichier::Tableau
          ? u"Aucune fiche à montrer. Dites, dans «\u00A0Colonnes\u00A0», laquelle porte le nom."_s
          : u"Aucune fiche à montrer."_s);
  MontrerColonnes(fichier);
}

void FrmReprise::MontrerOnglet(QWidget *page, bool montre) {
  ui_->Onglets->setTabVisible(ui_->Onglets->indexOf(page), montre);
}

void FrmReprise::MontrerColonnes(const FichierRepris &fichier) {
  const bool tableau = fichier.genre == GenreFichier::Tableau;
  if (tableau) ui_->OngletColonnes->Montrer(fichier.forme, fichier.colonnes);
  MontrerOnglet(ui_->OngletColonnes, tableau);
}

void FrmReprise::MajBoutons() {
  const QWidget *page = ui_->Pages->currentWidget();
  const bool fichiers = page == ui_->PageFichiers, bilan = page == ui_->Bilan;
  ui_->CmdReprendre->setVisible(fichiers);
  ui_->CmdEnregistrer->setVisible(bilan);
  ui_->CmdAutres->setVisible(bilan);
  const qsizetype nombre = etude_.nouvelles + ui_->OngletDeja->Choix().Nombre() +
                           (ui_->OngletDeja->Choix().PourTous() == Deja::Garder ? 0 : etude_.tues);
  const bool base = std::ranges::any_of(
      fichiers_, [](const FichierRepris &f) { return f.genre == GenreFichier::Base; });
  ui_->CmdReprendre->setEnabled(perimee_ || nombre > 0 || base);
  ui_->CmdReprendre->setText(perimee_      ? u"&Relire les fichiers"_s
                             : nombre == 0 ? u"&Reprendre"_s
                             : nombre == 1 ? u"&Reprendre 1 fiche"_s
                                           : u"&Reprendre %1 fiches"_s.arg(nombre));
  ui_->LblEtude->setText(!perimee_   ? PhraseEtude(etude_) + PhraseSansNom(fichiers_)
                         : colonnes_ ? u"Les colonnes ont changé : relisez les fichiers."_s
                                     : u"Les fichiers n'ont pas été lus jusqu'au bout."_s);
}

void FrmReprise::AllerA(QWidget *page) {
  ui_->Pages->setCurrentWidget(page);
  MajBoutons();
  QPushButton *defaut = page == ui_->PageDepart     ? ui_->CmdChoisir
                        : page == ui_->PageFichiers ? ui_->CmdReprendre
                                                    : ui_->CmdFermer;
  defaut->setDefault(true);
  if (page == ui_->PageFichiers)
    ui_->Fichiers->PrendreFocus();
  else
    defaut->setFocus();
}

void FrmReprise::Reprendre() {
  if (perimee_) return Etudier();
  if (!SauverAvant(session_, this, MotifSauvegarde::Import, session_.dossiers.Base())) return;
  const BilanReprise bilan = Executer();
  if (bilan.arrete) {
    session_.plateforme.boites.Information(u"Reprise arrêtée : rien n'a été changé."_s);
    return;
  }
  bilan_ = bilan;
  MontrerBilan();
  emit Repris(bilan);
}

BilanReprise FrmReprise::Executer() {
  const ChoixRencontres &choix = ui_->OngletDeja->Choix();
  const DemandeReprise demande{.deja = choix.PourTous(),
                               .reponses = choix.Propres(),
                               .utilisateur = session_.plateforme.utilisateur,
                               .dossierPhotos = session_.dossiers.Photos()};
  Acte acte(session_.base, u"reprise de fichiers"_s);
  const BilanReprise bilan =
      Travail(this, u"Reprise"_s)
          .Executer(session_.base, [&, usages = Usages()](Base &base, const Avance &avance) {
            return ReprendrePersonnes(base, fichiers_, usages, demande, avance);
          });
  acte.Nommer(NomReprise(bilan));
  return bilan;
}

void FrmReprise::MontrerBilan() {
  ui_->Bilan->Montrer(
      *bilan_, annulable_ && session_.base.LHistorique().TropGrande().isEmpty()
                   ? u"Pour revenir en arrière : « Annuler » du menu « Fiche »."_s
                   : u"Pour revenir en arrière : « Restaurer une sauvegarde » du menu « Options » "
                     "de Velmira. La base de données vient d'être sauvegardée."_s);
  AllerA(ui_->Bilan);
}

void FrmReprise::Enregistrer() {
  const QString jour = session_.plateforme.horloge.Maintenant().date().toString(u"yyyy-MM-dd"_s);
  const QString chemin = session_.plateforme.boites.FichierAEcrire(
      u"Enregistrer le compte rendu"_s, u"%1/Reprise %2.txt"_s.arg(dossier_, jour),
      u"Textes (*.txt)"_s);
  if (chemin.isEmpty()) return;
  EcrireCompteRendu(chemin, *bilan_);
  session_.plateforme.boites.Information(
      u"Le compte rendu est enregistré dans « %1 »."_s.arg(QDir::toNativeSeparators(chemin)));
}

void FrmReprise::Recommencer() {
  fichiers_.clear();
  etude_ = {};
  perimee_ = colonnes_ = false;
  ui_->OngletDeja->Vider();
  AllerA(ui_->PageDepart);
}

void FrmReprise::reject() {
  const bool choisi = ui_->Pages->currentWidget() == ui_->PageFichiers &&
                      (colonnes_ || ui_->OngletDeja->Choix().Choisi());
  if (PeutAbandonner(session_.plateforme.boites, choisi)) QDialog::reject();
}
