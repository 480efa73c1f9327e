#include "alerts/FrmOptionsAnn.h"

#include "alerts/DemarrageSysteme.h"
#include "alerts/Echeance.h"
#include "alerts/ListeAlertes.h"
#include "alerts/SaisieEvenement.h"
#include "ui/Brancheur.h"
#include "ui/Debrancher.h"
#include "ui_FrmOptionsAnn.h"

#include <QApplication>
#include <QMenu>
#include <QMouseEvent>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QString kTitre = u"Alertes"_s;

}  // namespace

FrmOptionsAnn::FrmOptionsAnn(Session &session, Repertoire &repertoire, QWidget *parent)
    : QDialog(parent),
      session_(session),
      repertoire_(repertoire),
      ui_(std::make_unique<Ui::FrmOptionsAnn>()),
      personnes_(session.plateforme.boites, session.base),
      mnuInvOp_(new QMenu(this)) {
  ui_->setupUi(this);
  layout()->setMenuBar(ui_->Menus);
  Boites &boites = session_.plateforme.boites;
  ui_->CboE->Relier(boites, session_.base);
  saisie_ = std::make_unique<SaisieEvenement>(
      boites, session_.base, session_.plateforme.horloge,
      SaisieEvenement::Controles{ui_->LblVelmira, ui_->CboE, ui_->CboJ, ui_->CboM, ui_->CboA,
                                 ui_->cboAlerte, ui_->ChkAlAn, ui_->LblAl, ui_->ChkAnn,
                                 ui_->ChkGA});
  liste_ = std::make_unique<ListeAlertes>(
      boites, session_.base, *saisie_,
      ListeAlertes::Controles{ui_->TVA, ui_->LblAlerte, ui_->ChkAlSeul, ui_->CmdSupprimer,
                              ui_->mnuReinscrire});
  Brancher();
  BrancherMenus();
  Charger();
}

FrmOptionsAnn::~FrmOptionsAnn() {
  DebrancherEnfants(*this);
}

void FrmOptionsAnn::Charger() {
  LireOptions();
  ui_->ChkDW->setChecked(session_.reglages.alarme.AlerteAvecWindows);
  ui_->ChkDP->setChecked(session_.reglages.alarme.AlerteAvecProgramme);
  if (!session_.base.Ouverte()) return;
  Signaler(session_.plateforme.boites, [this] {
    ui_->CboE->Charger();
    liste_->RemplirTVA();
  });
}

void FrmOptionsAnn::LireOptions() {
  session_.reglages.alarme = {};
  LireAlarme(session_.dossiers.AppPath, session_.reglages.alarme);
}

void FrmOptionsAnn::Brancher() {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->CmdVelmirra, &FrmOptionsAnn::AjouterVelmira);
  brancher(ui_->CmdVelmiraAlerte, [this] {
    if (personnes_.Ajouter()) liste_->RemplirTVA();
  });
  brancher(ui_->CmdSupprimer, [this] { liste_->BasculerSuppression(); });
  brancher(ui_->CmdEnrAlerte, [this] {
    if (saisie_->Enregistrer()) liste_->RemplirTVA();
  });
  brancher(ui_->CmdEnrTypeAlerte, &FrmOptionsAnn::ExpliquerListe);
  brancher(ui_->CmdEnregistre, &FrmOptionsAnn::EnregistrerOptions);
  brancher(ui_->CmdQuitte, &FrmOptionsAnn::close);
  brancher(ui_->CboE, &ComboEvenements::TypeSupprime, [this] { liste_->RemplirTVA(); });
  brancher(ui_->ChkAlSeul, &QCheckBox::toggled, [this](bool seul) {
    ui_->LblCD->setText(seul ? u" Décoc&her pour voir tous les velmiras"_s
                             : u" Coc&her pour ne voir que les alertes"_s);
    liste_->RemplirTVA();
  });
  brancher(ui_->TVA, &ArbreAlertes::NoeudClique, &FrmOptionsAnn::NoeudClic);
  connect(ui_->TVA, &ArbreAlertes::MenuDemande, this, [this](QPoint place) {
    if (ui_->TVA->Selection()) mnuInvOp_->popup(place);
  });
  for (QLabel *texte : {ui_->LblCD, ui_->LblAl}) texte->installEventFilter(this);
}

void FrmOptionsAnn::BrancherMenus() {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->mnuAlertes, &FrmOptionsAnn::Rechercher);
  brancher(ui_->mnuReinscrire, [this] { liste_->BasculerReinscription(); });
  brancher(ui_->mnuExpl, &FrmOptionsAnn::Expliquer);
  brancher(ui_->mnuLisez, [this] {
    session_.plateforme.coquille.Ouvrir(session_.dossiers.AppPath + u"/Alerte.txt"_s);
  });
  brancher(ui_->mnuSupp, [this] { liste_->SupprimerSelection(); });
  brancher(ui_->mnumodifier, &FrmOptionsAnn::ModifierVelmira);
  mnuInvOp_->setObjectName(u"mnuInvOp"_s);
  mnuInvOp_->addActions({ui_->mnuSupp, ui_->mnumodifier});
}

void FrmOptionsAnn::NoeudClic(const ArbreAlertes::Noeud &noeud) {
  ui_->mnuSupp->setText(noeud.personne ? u"&Supprimer ce velmira"_s : u"&Supprimer cette alerte"_s);
  ui_->mnumodifier->setVisible(noeud.personne);
  if (noeud.personne) {
    saisie_->Proposer(noeud.cle, noeud.texte);
    return;
  }
  if (const auto joint = TablesAlertes(session_.base).LireEvenement(noeud.cle)) {
    saisie_->Montrer(*joint);
    return;
  }
  liste_->RemplirTVA();
  session_.plateforme.boites.Information(TexteAlerteDisparue());
}

void FrmOptionsAnn::AjouterVelmira() {
  revient_ = true;  // the editor is a window of its own
  Repertoire::Ajout ajout;
  ajout.alerte = true;
  if (repertoire_.Ajouter(this, ajout)) liste_->RemplirTVA();
}

void FrmOptionsAnn::ModifierVelmira() {
  const auto noeud = ui_->TVA->Selection();
  const int rang = ui_->TVA->Rang();
  if (!noeud || !personnes_.Modifier(noeud->cle)) return;
  liste_->RemplirTVA();
  ui_->TVA->Selectionner(rang);
}

void FrmOptionsAnn::VenirDevant() {
  if (!std::exchange(revient_, false)) return;
  // Behind the activation, which a box would hold up.
  const auto proposer = [this] {
    Signaler(session_.plateforme.boites, [this] {
      if (session_.base.Ouverte() && personnes_.ProposerImport()) liste_->RemplirTVA();
    });
  };
  QMetaObject::invokeMethod(this, proposer, Qt::QueuedConnection);
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

bool FrmOptionsAnn::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::MouseButtonRelease &&
      static_cast<QMouseEvent *>(evenement)->button() == Qt::LeftButton)
    (objet == ui_->LblCD ? ui_->ChkAlSeul : ui_->ChkAlAn)->click();
  return QDialog::eventFilter(objet, evenement);
}

void FrmOptionsAnn::Rechercher() {
  LireOptions();
  const QDate aujourdhui = session_.plateforme.horloge.Maintenant().date();
  bool due = false;
  TablesAlertes(session_.base).PourChaqueEvenement([&](const Evenement &evenement) {
    const auto echeance = EcheanceDe(evenement, aujourdhui);
    due = echeance && echeance->Due();
    return !due;
  });
  if (due)
    session_.plateforme.coquille.Lancer(session_.dossiers.AppPath + u"/Vigilo"_s);
  else
    session_.plateforme.boites.Information(u"Pas d'alerte à ce jour. "_s);
}

void FrmOptionsAnn::EnregistrerOptions() {
  const QString &appPath = session_.dossiers.AppPath;
  if (ui_->ChkDW->isChecked())
    InscrireDemarrage(session_.plateforme.demarrage, appPath, 0);
  else
    RetirerDemarrage(session_.plateforme.demarrage, 0);
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

void FrmOptionsAnn::ExpliquerListe() {
  session_.plateforme.boites.Message(
      Boites::Genre::Information, kTitre,
      u"Chaque nouvelle entrée, écrite dans le zone de saisie de la liste des évènements,\n"
      "est systématiquement enregistrée quand on déroule la liste, ou lorsqu'on enregistre "
      "l'alerte.\n\n"
      "Pour supprimer une entrée de la liste déroulante, il faut :\n\n"
      "o - La sélectionner,\n"
      "o - Puis appuyer sur la touche Suppr (ou Dell) du clavier."_s);
}
