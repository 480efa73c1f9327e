#include "envelope/FrmNouveau.h"

#include "address/LibellesAdresse.h"
#include "directory/Annulation.h"
#include "directory/Repertoire.h"
#include "envelope/ExpediteurDefaut.h"
#include "storage/Tables.h"
#include "ui/Abandon.h"
#include "ui/Accord.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/Icones.h"
#include "ui/Sablier.h"
#include "ui/Veille.h"
#include "ui_FrmNouveau.h"

#include <QApplication>
#include <QCloseEvent>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString kTitreExpediteur = u"   Expéditeur"_s;
const QString kTitreNouveau = u"  Nouvel expéditeur"_s;

Expediteur Ligne(const AdresseSaisie &adresse) {
  Expediteur expediteur;
  adresse.Reporter(expediteur);
  return expediteur;
}

}  // namespace

FrmNouveau::FrmNouveau(Session &session, Repertoire &repertoire, ZonesEnveloppe &zones, Mode mode,
                       QWidget *parent)
    : QDialog(parent),
      session_(session),
      repertoire_(repertoire),
      zones_(zones),
      mode_(mode),
      ui_(std::make_unique<Ui::FrmNouveau>()) {
  ui_->setupUi(this);
  constexpr int kGris = 222;  // of the field that has the focus
  ui_->Champs->Relier(session_.plateforme.boites, session_.base, session_.dossiers.AppPath, kGris,
                      u"Image1"_s);
  if (session_.reglages.norme.Active) ui_->Champs->SuivreNorme();
  PoserIcone(ui_->Img, Icone(u"mail-message-new"), 48);

  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->CmdEcrire, &FrmNouveau::Ecrire);
  brancher(ui_->CmdAnnule, &FrmNouveau::Annuler);
  brancher(ui_->CmdNouveau, &FrmNouveau::CommencerNouveau);
  brancher(ui_->CmdModifie, &FrmNouveau::CommencerModification);
  brancher(ui_->CmdSupprime, &FrmNouveau::SupprimerExpediteur);
  brancher(ui_->CmdNew, [this] {
    ui_->CmdEnregistre->setEnabled(true);
    ui_->Champs->Vider();
  });
  brancher(ui_->CmdEnregistre, [this] {
    if (mode_ == Mode::Adresse)
      EnregistrerAdresse();
    else
      EnregistrerExpediteur();
  });
  brancher(ui_->LstExp, &QListWidget::itemSelectionChanged, [this] {
    if (!enSaisie_) MontrerChoisi();
  });
  brancher(ui_->Champs, &ChampsAdresse::OptionChoisie, &FrmNouveau::EssayerOption);
  new Annulation(session_,
                 {this, [this] { return !enSaisie_; }, [this](Cle) { MontrerReprise(); }});
  Preparer();
}

FrmNouveau::~FrmNouveau() {
  DebrancherEnfants(*this);
}

void FrmNouveau::Preparer() {
  const bool expediteurs = mode_ == Mode::Expediteurs;
  ui_->Img->setVisible(!expediteurs);
  ui_->CmdNew->setVisible(!expediteurs);
  ui_->Liste->setVisible(expediteurs);
  for (QPushButton *bouton : {ui_->CmdNouveau, ui_->CmdModifie, ui_->CmdSupprime})
    bouton->setVisible(expediteurs);
  if (!expediteurs) {
    setWindowTitle(u"    Nouvelle adresse"_s);
    ui_->CmdSupprime->setEnabled(false);
    return;
  }
  ui_->LstExp->Relier(session_, [this](const AdresseComposee &adresse, Cle index, bool coche) {
    if (coche)
      zones_.EcrireExpediteur(adresse, index);
    else
      zones_.RetenirExpediteur(adresse, index);
  });
  Ignorer([this] { changements_ = session_.base.Changements(); });
  ui_->LstExp->Remplir();
  QuitterSaisie(kTitreExpediteur);
  MontrerChoisi();
  Veiller(session_.plateforme.horloge, this, [this] { Actualiser(); });
}

bool FrmNouveau::event(QEvent *evenement) {
  const bool traite = QDialog::event(evenement);
  if (evenement->type() == QEvent::WindowActivate)
    QMetaObject::invokeMethod(this, &FrmNouveau::Actualiser, Qt::QueuedConnection);
  return traite;
}

void FrmNouveau::Actualiser() {
  if (mode_ != Mode::Expediteurs || enSaisie_ || QApplication::activeModalWidget() != this) return;
  Ignorer([this] {
    const Attente attente(session_.base, 0ms);
    const qint64 changements = session_.base.Changements();
    if (changements == changements_) return;
    {
      const QSignalBlocker silence(ui_->LstExp);
      ui_->LstExp->Relire();
    }
    MontrerChoisi();
    changements_ = changements;
  });
}

void FrmNouveau::showEvent(QShowEvent *evenement) {
  QDialog::showEvent(evenement);
  if (mode_ == Mode::Expediteurs)
    ui_->CmdNouveau->setFocus();
  else
    ui_->Champs->PrendreFocus();
}

void FrmNouveau::Ecrire() {
  if (!ui_->Champs->Accepter()) return;
  zones_.OublierCommentaire();
  const AdresseComposee adresse = ComposerAdresse(ui_->Champs->Adresse());
  if (mode_ == Mode::Expediteurs) {
    zones_.EcrireExpediteur(adresse, ui_->LstExp->Choisi().value_or(0));
  } else {
    zones_.EcrireAdresse(adresse);
    if (AdresseVide(adresse.chaine)) {
      session_.plateforme.boites.Information(u"Ecrivez une adresse, ou bien annulez."_s);
      return;
    }
  }
  accept();
}

void FrmNouveau::reject() {
  if (PeutPartir()) Annuler();
}

bool FrmNouveau::PeutPartir() {
  const bool ouverte = mode_ == Mode::Adresse || enSaisie_;
  const AdresseSaisie saisie = ui_->Champs->Adresse();
  if (!PeutAbandonner(session_.plateforme.boites, ouverte && saisie != affichee_)) return false;
  affichee_ = saisie;
  return true;
}

void FrmNouveau::Annuler() {
  if (!enSaisie_) {
    QDialog::reject();
    return;
  }
  Signaler(session_.plateforme.boites, [this] { RendreOption(); });
  QuitterSaisie(kTitreExpediteur);
  Signaler(session_.plateforme.boites, [this] { MontrerChoisi(); });
}

void FrmNouveau::closeEvent(QCloseEvent *evenement) {
  if (!PeutPartir()) {
    evenement->ignore();
    return;
  }
  Signaler(session_.plateforme.boites, [this] { RendreOption(); });
  enSaisie_ = false;
  QDialog::closeEvent(evenement);
}

void FrmNouveau::EnregistrerAdresse() {
  if (!ui_->Champs->Accepter()) return;
  if (QWidget *vide = ui_->Champs->PremierVide();
      vide != nullptr &&
      session_.plateforme.boites.Question(
          Boites::Titre(),
          u"Plusieurs champs importants ne sont pas renseignés.\nVoulez-vous continuer ?"_s) !=
          Boites::Reponse::Oui) {
    vide->setFocus();
    return;
  }
  const AdresseSaisie saisie = ui_->Champs->Adresse();
  Correspondant depart;
  saisie.Reporter(depart);
  if (repertoire_.Ajouter(this, {.depart = depart})) affichee_ = saisie;
}

void FrmNouveau::EnregistrerExpediteur() {
  if (!ui_->Champs->Accepter()) return;
  if (QWidget *vide = ui_->Champs->PremierVide()) {
    session_.plateforme.boites.Information(
        u"Un ou plusieurs champs indispensables ne sont pas renseignés."_s);
    vide->setFocus();
    return;
  }
  if (modifie_.Index != 0)
    EnregistrerChangement();
  else
    EnregistrerNouveau();
}

void FrmNouveau::EnregistrerChangement() {
  TableExpediteur table(session_.base);
  const Cle index = modifie_.Index;
  const Expediteur saisi = Ligne(ui_->Champs->Adresse());
  Expediteur change = modifie_;
  Recopier(change, saisi, Differences(Ligne(affichee_), saisi));
  if (!table.Lire(index)) {
    ContinuerEnNouveau();
    return;
  }
  const bool essaye = ordreEssaye_;
  RendreOption();  // what is taken back goes to the order before
  const ListeExpediteurs::Ecriture ecriture(
      session_, u"modification de l'expéditeur « %1 »"_s.arg(modifie_.Ligne1));
  FichierDefaut fichier(session_.dossiers.AppPath);
  const auto suivre = [&](const Expediteur &defaut) { fichier.Suivre(defaut); };
  if (!EcrireEnAccord(session_.plateforme.boites, modifie_, change, LibellesAdresse<Expediteur>(),
                      [&](const Expediteur &montre, const Expediteur &aEcrire) {
                        return SousSablier([&] { return table.Modifier(montre, aEcrire, suivre); });
                      })) {
    if (essaye) EssayerOption(ui_->Champs->Adresse().optionCP);
    return;
  }
  fichier.Garder();
  QuitterSaisie(u"   Nouvel expéditeur"_s);
  // As it stands now: another user may have had a part in it.
  if (const auto ecrit = table.Lire(index))
    zones_.SuivreExpediteur(ComposerAdresse(AdresseSaisie::De(*ecrit)), index);
  ui_->LstExp->Remplir(index);
  MontrerChoisi();
}

void FrmNouveau::ContinuerEnNouveau() {
  session_.plateforme.boites.Information(
      TexteExpediteurDisparu() +
      u"\nVotre saisie reste affichée : « Enregistrer » en fait un nouvel expéditeur, « Annuler » "
      "l'abandonne."_s);
  modifie_ = {};
  affichee_ = {};  // the entry is all that is left of it
  setWindowTitle(kTitreNouveau);
  ui_->LstExp->Relire();
}

void FrmNouveau::EnregistrerNouveau() {
  const AdresseSaisie adresse = ui_->Champs->Adresse();
  const AdresseComposee composee = ComposerAdresse(adresse);
  Expediteur expediteur = Ligne(adresse);
  expediteur.ParDefaut =
      session_.plateforme.boites.Question(
          Boites::Titre(), u"Enregister cet expéditeur par défaut ?"_s) == Boites::Reponse::Oui;
  TableExpediteur table(session_.base);
  const ListeExpediteurs::Ecriture ecriture(
      session_, u"ajout de l'expéditeur « %1 »"_s.arg(expediteur.Ligne1));
  FichierDefaut fichier(session_.dossiers.AppPath);
  const auto suivre = [&](const Expediteur &defaut) { fichier.Suivre(defaut); };
  const auto ajouter = [&](Cle montre) { return table.Ajouter(expediteur, montre, suivre); };
  const auto choix = ui_->LstExp->AccorderDefaut(expediteur.Ligne1, ajouter);
  if (choix == Boites::Choix::Annuler) return;
  if (choix == Boites::Choix::Non) {
    expediteur.ParDefaut = false;
    ajouter(0);
  }
  fichier.Garder();
  ViderChamps();  // it is recorded: pressing once more must not add it again, whatever comes now
  zones_.EcrireExpediteur(composee, expediteur.Index);
  ui_->LstExp->Remplir(expediteur.Index);
}

void FrmNouveau::CommencerNouveau() {
  modifie_ = {};
  Saisir(kTitreNouveau);
  ViderChamps();
}

void FrmNouveau::ViderChamps() {
  ui_->Champs->Vider();
  ui_->Champs->PrendreFocus();
  affichee_ = ui_->Champs->Adresse();
}

void FrmNouveau::CommencerModification() {
  const auto choisi = ui_->LstExp->Choisi();
  if (!choisi) {
    session_.plateforme.boites.Information(u"Sélectionnez l'adresse à modifier !"_s);
    return;
  }
  if (*choisi == 0) return;
  const auto lu = RelireChoisi(*choisi);
  if (!lu) return;
  modifie_ = *lu;
  affichee_ = ui_->Champs->Adresse();
  Saisir(u"  Modification d'adresse expéditeur"_s);
  ui_->Champs->PrendreFocus();
}

void FrmNouveau::SupprimerExpediteur() {
  const auto choisi = ui_->LstExp->Choisi();
  if (!choisi) {
    session_.plateforme.boites.Information(u"Sélectionnez l'adresse à supprimer !"_s);
    return;
  }
  if (*choisi == 0 || !RelireChoisi(*choisi) ||
      session_.plateforme.boites.Question(
          Boites::Titre(), u"Supprimer "_s + ui_->LstExp->selectedItems().first()->text(),
          Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;
  ui_->LstExp->Supprimer(*choisi);
  ui_->Champs->Vider();
  zones_.SuivreExpediteur({}, *choisi);
  ui_->CmdSupprime->setEnabled(ui_->LstExp->count() > 1);
}

void FrmNouveau::MontrerChoisi() {
  const Cle choisi = ui_->LstExp->Choisi().value_or(0);
  const auto expediteur = TableExpediteur(session_.base).Lire(choisi);
  ui_->Champs->Montrer(expediteur ? AdresseSaisie::De(*expediteur) : AdresseSaisie());
  if (choisi != 0 && !expediteur) ui_->LstExp->AnnoncerDisparu();
}

std::optional<Expediteur> FrmNouveau::RelireChoisi(Cle index) {
  const auto lu = TableExpediteur(session_.base).Lire(index);
  ui_->LstExp->Relire();
  if (lu)
    ui_->Champs->Montrer(AdresseSaisie::De(*lu));
  else
    session_.plateforme.boites.Information(TexteExpediteurDisparu());
  return lu;
}

void FrmNouveau::MontrerReprise() {
  if (mode_ != Mode::Expediteurs) return;
  Actualiser();
  QuitterSaisie(kTitreExpediteur);
}

void FrmNouveau::EssayerOption(std::optional<OptionCP> option) {
  if (modifie_.Index == 0 || ui_->LstExp->Defaut() != modifie_.Index) return;
  const auto expediteur = TableExpediteur(session_.base).Lire(modifie_.Index);
  if (!expediteur) return;
  AdresseComposee composee = ComposerAdresse(AdresseSaisie::De(*expediteur));
  if (option) composee.optionCP = *option;
  EcrireExpediteurDefaut(session_.dossiers.AppPath, composee);
  ordreEssaye_ = option.has_value();
}

void FrmNouveau::RendreOption() {
  if (ordreEssaye_) EssayerOption(std::nullopt);
}

void FrmNouveau::Saisir(const QString &titre) {
  enSaisie_ = true;
  setWindowTitle(titre);
  ui_->Champs->MontrerTitres(true);
  ui_->Champs->Verrouiller(false);
  for (QPushButton *bouton : {ui_->CmdEcrire, ui_->CmdNouveau, ui_->CmdModifie, ui_->CmdSupprime})
    bouton->setEnabled(false);
  ui_->CmdEnregistre->setEnabled(true);
  ui_->CmdEnregistre->setDefault(true);
}

void FrmNouveau::QuitterSaisie(const QString &titre) {
  enSaisie_ = ordreEssaye_ = false;
  modifie_ = {};
  setWindowTitle(titre);
  ui_->Champs->MontrerTitres(false);
  ui_->Champs->Verrouiller(true);
  ui_->CmdEcrire->setEnabled(true);
  ui_->CmdEcrire->setDefault(true);
  ui_->CmdNouveau->setEnabled(true);
  const bool expediteurs = ui_->LstExp->count() > 1;
  ui_->CmdModifie->setEnabled(expediteurs);
  ui_->CmdSupprime->setEnabled(expediteurs);
  ui_->LstExp->setFocus();  // before the button that may have it is shut
  ui_->CmdEnregistre->setEnabled(false);
}
