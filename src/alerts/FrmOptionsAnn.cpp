#include "alerts/FrmOptionsAnn.h"

#include "alerts/Compagnons.h"
#include "alerts/Echeance.h"
#include "alerts/ListeAlertes.h"
#include "alerts/SaisieEvenement.h"
#include "alerts/Vigilance.h"
#include "directory/Annulation.h"
#include "platform/Enumeration.h"
#include "storage/Tables.h"
#include "ui/Abandon.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui/Veille.h"
#include "ui/ZoneAuBesoin.h"
#include "ui_FrmOptionsAnn.h"

#include <QApplication>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kTitre = u"Alertes"_s;

}  // namespace

FrmOptionsAnn::FrmOptionsAnn(Session &session, Repertoire &repertoire, QWidget *parent)
    : QDialog(parent),
      session_(session),
      repertoire_(repertoire),
      ui_(std::make_unique<Ui::FrmOptionsAnn>()) {
  ui_->setupUi(this);
  layout()->setMenuBar(ui_->Menus);
  Plateforme &plateforme = session_.plateforme;
  ui_->CadreSaisie->Relier(plateforme.boites, session_.base, plateforme.horloge);
  ui_->Liste->Relier(plateforme.boites, session_.base);
  ui_->mnuAl->addAction(ui_->Liste->ActionReinscrire());
  PoserAnnulation();
  Brancher();
  Charger();
  Veiller(session_.plateforme.horloge, this, [this] {
    if (isActiveWindow()) Actualiser();
  });
}

FrmOptionsAnn::~FrmOptionsAnn() {
  DebrancherEnfants(*this);
}

void FrmOptionsAnn::reject() {
  if (PeutAbandonner(session_.plateforme.boites, ui_->CadreSaisie->EstEntamee())) QDialog::reject();
}

void FrmOptionsAnn::PoserAnnulation() {
  const auto *annulation = new Annulation(session_, {this, {}, [this](Cle) { MontrerReprise(); }});
  ui_->mnuAl->addSeparator();
  ui_->mnuAl->addActions({annulation->mnuAnnuler(), annulation->mnuRetablir()});
}

void FrmOptionsAnn::MontrerReprise() {
  Actualiser();
  if (ui_->CadreSaisie->EstEntamee()) return;  // what is being entered goes on
  ui_->CadreSaisie->Vider();
  ui_->CadreSaisie->Charger();
}

void FrmOptionsAnn::Charger() {
  LireOptions();
  ui_->ChkDW->setChecked(session_.reglages.alarme.AlerteAvecWindows);
  ui_->ChkDP->setChecked(session_.reglages.alarme.AlerteAvecProgramme);
  if (!session_.base.Ouverte()) return;
  Signaler(session_.plateforme.boites, [this] {
    ui_->CadreSaisie->Charger();
    ui_->Liste->Remplir();
  });
}

void FrmOptionsAnn::LireOptions() {
  session_.reglages.alarme = {};
  LireAlarme(session_.dossiers.AppPath, session_.reglages.alarme);
}

void FrmOptionsAnn::Brancher() {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->Liste, &ListeAlertes::NoeudChoisi, &FrmOptionsAnn::Choisir);
  brancher(ui_->Liste, &ListeAlertes::ChoixPerdu, [this] { ui_->CadreSaisie->Vider(); });
  brancher(ui_->Liste, &ListeAlertes::VelmiraDemande, &FrmOptionsAnn::AjouterVelmira);
  brancher(ui_->Liste, &ListeAlertes::Relue, &FrmOptionsAnn::MontrerProchaines);
  brancher(ui_->CadreSaisie, &SaisieEvenement::EvenementsChanges,
           [this] { ui_->Liste->Remplir(); });
  brancher(ui_->CmdEnregistre, &FrmOptionsAnn::EnregistrerOptions);
  brancher(ui_->CmdQuitte, &FrmOptionsAnn::close);
  brancher(ui_->mnuAlertes, &FrmOptionsAnn::Rechercher);
  brancher(ui_->mnuExpl, &FrmOptionsAnn::Expliquer);
  brancher(ui_->mnuLisez, [this] {
    session_.plateforme.coquille.Ouvrir(session_.dossiers.AppPath + u"/Alerte.txt"_s);
  });
}

void FrmOptionsAnn::Choisir(const ArbreAlertes::Noeud &noeud) {
  // As it is now: another user may have changed it since the list was read.
  const TablesAlertes tables(session_.base);
  if (const auto *personne = noeud.Personne()) {
    if (const auto lue = tables.LirePersonne(personne->ID))
      ui_->CadreSaisie->Proposer(*lue);
    else
      AnnoncerDisparition(TexteDisparu());
    return;
  }
  if (const auto joint = tables.LireEvenement(noeud.Evenement()->evenement.ID))
    ui_->CadreSaisie->Montrer(*joint);
  else
    AnnoncerDisparition(TexteAlerteDisparue());
}

void FrmOptionsAnn::AnnoncerDisparition(const QString &texte) {
  ui_->Liste->Remplir();
  session_.plateforme.boites.Information(texte);
}

void FrmOptionsAnn::AjouterVelmira() {
  revient_ = true;  // the editor is a window of its own
  Repertoire::Ajout ajout;
  ajout.alerte = true;
  if (repertoire_.Ajouter(this, ajout)) ui_->Liste->Remplir();
}

void FrmOptionsAnn::VenirDevant() {
  if (!std::exchange(revient_, false)) return;
  // Behind the activation, which a box would hold up.
  const auto proposer = [this] {
    Signaler(session_.plateforme.boites, [this] {
      if (!session_.base.Ouverte()) return;
      Actualiser();
      ui_->Liste->ProposerImport();
    });
  };
  QMetaObject::invokeMethod(this, proposer, Qt::QueuedConnection);
}

void FrmOptionsAnn::Actualiser() {
  if (!session_.base.Ouverte() || QApplication::activePopupWidget() != nullptr) return;
  Ignorer([this] {
    const Attente attente(session_.base, {});
    ui_->Liste->Actualiser();
  });
}

void FrmOptionsAnn::showEvent(QShowEvent *evenement) {
  ZoneAuBesoin::TenirDansLEcran(*this, *evenement, {ui_->Corps});
  QDialog::showEvent(evenement);
}

bool FrmOptionsAnn::event(QEvent *evenement) {
  const bool traite = QDialog::event(evenement);
  switch (evenement->type()) {
    case QEvent::Show:
    case QEvent::WindowActivate:
      if (isVisible()) VenirDevant();
      break;
    case QEvent::WindowDeactivate:
      // A box of this window takes its place as the modal one.
      if (QApplication::activeModalWidget() == this) revient_ = true;
      break;
    default:
      break;
  }
  return traite;
}

void FrmOptionsAnn::MontrerProchaines() {
  constexpr int kJours = 30;
  const Plateforme &plateforme = session_.plateforme;
  const QList<Alerte> prochaines =
      ProchainesAlertes(PersonnesVisibles(session_.base, plateforme.utilisateur),
                        plateforme.horloge.Maintenant().date(), kJours);
  ui_->LstProchaines->clear();
  for (const Alerte &alerte : prochaines) {
    auto *ligne = new QListWidgetItem(LigneAlerte(alerte, plateforme.langue), ui_->LstProchaines);
    ligne->setToolTip(ligne->text());
    QFont police = ui_->LstProchaines->font();
    police.setBold(alerte.due);
    ligne->setFont(police);
  }
  ui_->LstProchaines->setVisible(!prochaines.isEmpty());
  ui_->LblProchaines->setVisible(prochaines.isEmpty());
}

void FrmOptionsAnn::Rechercher() {
  LireOptions();
  const QString &appPath = session_.dossiers.AppPath;
  Plateforme &plateforme = session_.plateforme;
  const QDate jour = plateforme.horloge.Maintenant().date();
  const QList<PersonneEvenements> personnes =
      PersonnesVisibles(session_.base, plateforme.utilisateur);
  const BilanAlertes bilan = ChercherAlertes(personnes, jour);
  const Vigilance vigilance = Surveiller(
      personnes, MemoireAlertes(appPath, session_.base.Chemin(), plateforme.utilisateur), jour);
  if (!bilan.due)
    plateforme.boites.Information(u"Pas d'alerte à ce jour. "_s);
  else if (vigilance.EstVide())  // the companion would be silent
    plateforme.boites.Information(TexteVues(vigilance.vues));
  else
    plateforme.coquille.Lancer(CheminCompagnon(appPath, Compagnon::Alertes));
  if (!bilan.sansDate.isEmpty()) SignalerSansDate(bilan.sansDate);
}

void FrmOptionsAnn::SignalerSansDate(const QList<EvenementJoint> &evenements) {
  QStringList lignes;
  for (const EvenementJoint &joint : evenements)
    lignes.append(u"%1 - %2 : « %3 »"_s.arg(joint.Nom, joint.Type_alerte, joint.evenement.Date));
  session_.plateforme.boites.Message(
      Boites::Genre::Attention, kTitre,
      (lignes.size() == 1
           ? u"Cette alerte ne peut pas être signalée, car sa date n'existe pas :\n\n"_s
           : u"Ces alertes ne peuvent pas être signalées, car leur date n'existe pas :\n\n"_s) +
          Abreger(lignes).join(u'\n') +
          u"\n\nCliquez dans la liste sur l'alerte à corriger, et enregistrez-la avec une autre date."_s);
}

void FrmOptionsAnn::EnregistrerOptions() {
  const QString &appPath = session_.dossiers.AppPath;
  if (ui_->ChkDW->isChecked())
    InscrireDemarrage(session_.plateforme.demarrage, appPath, Compagnon::Alertes);
  else
    RetirerDemarrage(session_.plateforme.demarrage, Compagnon::Alertes);
  ReglagesAlarme &alarme = session_.reglages.alarme;
  alarme.AlerteAvecWindows = ui_->ChkDW->isChecked();
  alarme.AlerteAvecProgramme = ui_->ChkDP->isChecked();
  EcrireAlarme(appPath, alarme);
  close();
}

void FrmOptionsAnn::Expliquer() {
  session_.plateforme.boites.Message(
      Boites::Genre::Information, kTitre,
      u"Le rappel de dates d'alertes peut se faire de plusieurs façons. \n\n"
      "- Toujours à partir du menu 'Recherche manuelle d'alertes'\n"
      "- Au démarrage du programme\n"
      "- Au démarrage de Windows\n\n"
      "Pour info,cette fonction appelle un autre petit programme, qui, quelque soit le choix "
      "et le résultat, se décharge ensuite, et ne vient donc pas encombrer la mémoire, ni "
      "diminuer les ressources.\n\n"
      "Lire le menu 'Lisez moi' pour plus d'explications."_s);
}
