#include "directory/FrmVelmira.h"

#include "calendar/Saints.h"
#include "directory/Apparence.h"
#include "directory/CommandesAppel.h"
#include "directory/FrmCalendrier.h"
#include "directory/FrmLoupe.h"
#include "directory/Liste.h"
#include "directory/MenuFiche.h"
#include "platform/Erreurs.h"
#include "storage/Tables.h"
#include "ui/Brancheur.h"
#include "ui/CompteRendu.h"
#include "ui/Debrancher.h"
#include "ui/Echelle.h"
#include "ui/Sablier.h"
#include "ui/Theme.h"
#include "ui/Veille.h"
#include "ui_FrmVelmira.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QScopeGuard>
#include <QShortcut>
#include <QThread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString kPlusDansLaListe =
    u"Ce correspondant n'est plus dans la liste : un autre utilisateur l'a supprimé ou modifié "
    "entre-temps."_s;

std::unique_ptr<Ui::FrmVelmira> Preparer(FrmVelmira &fenetre) {
  auto ui = std::make_unique<Ui::FrmVelmira>();
  ui->setupUi(&fenetre);
  return ui;
}

}  // namespace

FrmVelmira::FrmVelmira(Session &session)
    : session_(session),
      ui_(Preparer(*this)),
      fiche_(session, *ui_->Fiche),
      commandes_(session, *ui_->Liste,
                 {this, [this] { return ui_->mnuMasquer->isChecked(); },
                  [this] {
                    fiche_.Effacer();
                    AccorderSelection();
                  },
                  *ui_->Fait, [this] { annulation_->Reprendre(Historique::Sens::Annuler); }}),
      impression_(session, *ui_->Liste, *ui_->Fait, this),
      mnuInv2_(new QMenu(this)),
      niveau_(QThread::currentThread()->loopLevel()) {
  const double echelle = Echelle(session_.reglages.rtcolor.TailleFenetre);
  ui_->Partage->setSizes({qRound(280 * echelle), qRound(620 * echelle)});
  ui_->Partage->setStretchFactor(1, 1);
  ui_->Fond->PoserPanneaux({ui_->PanneauCommandes, ui_->Liste, ui_->Fiche, ui_->PanneauJour},
                           echelle);
  ui_->mnuversion->setText(u"Version "_s + QStringLiteral(VELMIRA_VERSION));
  mnuInv2_->setObjectName(u"mnuInv2"_s);
  mnuInv2_->addActions({ui_->mnumodifier, ui_->mnuSupprimer, ui_->mnuAgrandir, ui_->mnuImpEnv});
  ui_->Fait->Relier(session_.plateforme, *this);
  ui_->Liste->LigneDepart().Relier(session_.plateforme, *this);
  annulation_ = new Annulation(session_, {this, [this] { return fiche_.LibererNotes(); },
                                          [this](Cle fiche) {
                                            if (fiche != 0) OuvrirFiche(fiche);
                                          },
                                          ui_->Fait});
  FaireCommandes();
  RemplirBarre();
  Brancher();
  BrancherRecherche();
  BrancherFiche();
  appel_->Appliquer();
  Habiller(apparence_->LAspect());
  ChargerJour();
  connect(&session_.base.LHistorique(), &Historique::Repris, this, &FrmVelmira::SuivreReprise);
  Veiller(session_.plateforme.horloge, this, [this] {
    if (isActiveWindow()) ActualiserAuRepos();
  });
}

FrmVelmira::~FrmVelmira() {
  DebrancherEnfants(*this);
}

void FrmVelmira::OuvrirListe() {
  const qint64 changements = session_.base.Changements();
  ui_->Liste->Ouvrir(session_.reglages.rtcolor.OuvrirSurFavoris);
  changements_ = changements;
}

void FrmVelmira::FaireCommandes() {
  const Ui::FrmVelmira &u = *ui_;
  appel_ = new CommandesAppel(session_,
                              {u.mnuTel,
                               u.mnuMasquerTel,
                               u.mnuPort->menuAction(),
                               {u.mnuCom_0, u.mnuCom_1, u.mnuCom_2, u.mnuCom_3, u.mnuCom_4},
                               u.mnuVolume,
                               u.mnuADSL},
                              *u.Fiche, this);
  apparence_ = std::make_unique<Apparence>(
      session_,
      Apparence::Actions{u.mnuDDN, u.mnuAge, u.mnuRien, u.mnudegrade, u.mnuUni, u.mnuAgPolListe1,
                         u.mnuAgPolListe2, u.mnuListe, u.mnuClickDroit, u.mnuEffet, u.mnuPlomex,
                         u.mnuGras, u.mnuAdress, u.mnuPerso, u.mnuvit, u.mnuPG},
      *this, [this] { emit RelanceDemandee(); });
}

void FrmVelmira::RemplirBarre() {
  const Ui::FrmVelmira &u = *ui_;
  BarreBoutons &barre = *u.Barre;
  barre.Preparer(session_.plateforme, u"ImgBouton"_s);
  barre.Ajouter(0, {u"contact-new", u"  Nouveau velmira"_s, [this] { Nouveau(); },
                    u"Nouveau\nvelmira"_s, kBulleBleue, u.mnuNouveau->shortcut(), u"Nouveau"_s});
  barre.Ajouter(
      1, {u"document-edit", u"  Modifie les données"_s, [this] { Modifier(); },
          u"Modifier\nles données"_s, kBulleBleue, u.mnumodifier->shortcut(), u"Modifier"_s});
  barre.Ajouter(
      2, {u"edit-delete", u"  Supprime le velmira"_s, [this] { Supprimer(); },
          u"Supprime\nle velmira"_s, kBulleRouge, u.mnuSupprimer->shortcut(), u"Supprimer"_s});
  barre.Ajouter(
      3, {u"loupe", u"  Agrandit les données"_s, [this] { Agrandir(); }, u"Agrandit\nles données"_s,
          kBulleNoire, u.mnuAgrandir->shortcut(), u"Agrandir"_s});
  barre.Separer();
  barre.Ajouter(
      7, {u"mail-message-new", u"  Imprimer une enveloppe"_s, [this] { AllerAuxEnveloppes(); },
          u"Imprimer\nune\nenveloppe"_s, kBulleJaune, u.mnuImpEnv->shortcut(), u"Enveloppe"_s});
  barre.Ajouter(4, {u"document-print", u"  Imprime la liste"_s, [this] { ImprimerListe(); },
                    u"Imprime\nla liste"_s, kBulleJaune, u.mnuImpListe->shortcut(), u"Liste"_s});
  const QToolButton *appeler = barre.Ajouter(9, {u"call-start",
                                                 u"  Appeler...?"_s,
                                                 [this] { appel_->Demander(); },
                                                 u"Appeler ...?"_s,
                                                 kBulleJaune,
                                                 {},
                                                 u"Appeler"_s});
  barre.Separer();
  barre.Ajouter(10, {u"document-swap",
                     u"  Importer ou exporter les données de Velmira"_s,
                     [this] { ui_->Barre->Derouler(ui_->mnuInv); },
                     u"Exporter\nou\nimporter \nles données"_s,
                     kBulleRouge,
                     {},
                     u"Échange"_s});
  barre.Ajouter(11, {u"x-office-spreadsheet",
                     u"  Exporter les données dans Excel"_s,
                     [this] { emit ClasseurDemande(); },
                     u"Exporter les données dans un fichier Excel"_s,
                     kBulleBrune,
                     {},
                     u"Excel"_s});
  barre.Separer();
  barre.Ajouter(12, {u"appointment-reminder",
                     u"  Module des alertes"_s,
                     [this] { AllerAuxAlertes(); },
                     u"Module Alertes"_s,
                     kBulleBrune,
                     {},
                     u"Alertes"_s});
  barre.Ajouter(13, {u"note", u"  Memora"_s, [this] { ui_->Barre->Derouler(mnuInv3_); },
                     u"Memora"_s, kBulleRouge});
  barre.Ajouter(5, {u"view-calendar", u"  Calendrier"_s, [this] { MontrerCalendrier(); },
                    u"Calendrier"_s, kBulleBleue});
  barre.Ajouter(6, {u"color-picker",
                    u"  Change la couleur du fond"_s,
                    [this] { apparence_->ChoisirCouleur(); },
                    u"Couleur\ndu fond"_s,
                    kBulleNoire,
                    {},
                    u"Couleur"_s});
  barre.Ecarter();
  barre.Ajouter(8, {u"application-exit", u"  Quitter Velmira ?"_s, [this] { close(); },
                    u"Quitter ?"_s, kBulleNoire, u.mnuQuitter->shortcut(), u"Quitter"_s});
  connect(appel_, &CommandesAppel::Montree, appeler, &QToolButton::setVisible);
  const auto expliquer = [this](const QString &texte) {
    ui_->LblBouton->setText(texte);
    ui_->LblBouton->setVisible(!texte.isEmpty());
    ui_->Fait->setVisible(texte.isEmpty());
  };
  connect(&barre, &BarreBoutons::Survolee, this, expliquer);
  expliquer({});
}

void FrmVelmira::Brancher() {
  ui_->Liste->Relier(session_, [this] {
    if (!fiche_.LibererNotes()) return false;
    fiche_.Effacer();
    return true;
  });
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->Liste, &ListeVelmiras::Cliquee, &FrmVelmira::NoeudClic);
  brancher(ui_->Liste, &ListeVelmiras::DoubleCliquee, &FrmVelmira::Modifier);
  brancher(ui_->Liste, &ListeVelmiras::FavoriDemande, [this] { commandes_.AjouterAuxFavoris(); });
  const auto suivre = [this] { SuivreDonnees(); };
  const ModeleListe &modele = ui_->Liste->Arbre().Modele();
  connect(&modele, &ModeleListe::modelReset, this, suivre, Qt::QueuedConnection);
  connect(&modele, &ModeleListe::rowsInserted, this, suivre, Qt::QueuedConnection);
  connect(&modele, &ModeleListe::rowsRemoved, this, suivre, Qt::QueuedConnection);
  brancher(ui_->Liste, &ListeVelmiras::AnniversaireChoisi, &FrmVelmira::OuvrirFiche);
  brancher(ui_->Fiche, &PanneauFiche::CategorieDemandee, &FrmVelmira::OuvrirCategorie);
  brancher(ui_->Fiche, &PanneauFiche::PremierDemande, &FrmVelmira::Nouveau);
  connect(ui_->Fiche, &PanneauFiche::ImportDemande, ui_->mnuImport, &QAction::trigger);
  connect(ui_->Fiche, &PanneauFiche::NotesQuittees, this, [this] { fiche_.NotesQuittees(); });
  brancher(ui_->mnuMasquer, &FrmVelmira::MasquerProteges);
  brancher(apparence_.get(), &Apparence::Changee, [this] { Habiller(apparence_->LAspect()); });
  brancher(apparence_.get(), &Apparence::NaissanceChangee, [this] {
    ui_->Liste->Arbre().CliquerSelection();
    ui_->Liste->LireAnniversaires();
  });
}

void FrmVelmira::BrancherRecherche() {
  connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, ui_->Liste,
          &ListeVelmiras::AllerALaRecherche);
}

void FrmVelmira::BrancherFiche() {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->mnuNouveau, &FrmVelmira::Nouveau);
  brancher(ui_->mnumodifier, &FrmVelmira::Modifier);
  brancher(ui_->mnuSupprimer, &FrmVelmira::Supprimer);
  brancher(ui_->mnuAgrandir, &FrmVelmira::Agrandir);
  brancher(ui_->mnuImpEnv, &FrmVelmira::AllerAuxEnveloppes);
  brancher(ui_->mnuEnvCat, &FrmVelmira::AllerAuxEnveloppesDeCategorie);
  brancher(ui_->mnuFavori, [this] { commandes_.AjouterAuxFavoris(); });
  brancher(ui_->mnuImpListe, &FrmVelmira::ImprimerListe);
  brancher(ui_->mnuExcel, &FrmVelmira::ClasseurDemande);
  brancher(ui_->mnuQuitter, &FrmVelmira::close);

  const QList<QAction *> reprises{annulation_->mnuAnnuler(), annulation_->mnuRetablir()};
  const QList<QAction *> articles = ui_->mnuFiche->actions();
  ui_->mnuFiche->insertActions(articles[articles.indexOf(ui_->mnuImpEnv) - 1], reprises);
  ui_->mnuFiche->insertSeparator(reprises.first());
  ui_->mnuFiche->insertAction(ui_->mnuFavori, ui_->Fiche->ActionCopierAdresse());
  const auto *menu = new MenuFiche(
      {.menu = *ui_->mnuFiche,
       .mnuSupprimer = ui_->mnuSupprimer,
       .deFiche = {ui_->mnumodifier, ui_->mnuSupprimer, ui_->mnuAgrandir, ui_->mnuFavori},
       .deListe = {ui_->mnuEnvCat, ui_->mnuImpListe, ui_->mnuExcel}},
      ui_->Liste->Arbre(), *this);
  brancher(menu, &MenuFiche::ModificationDemandee, &FrmVelmira::Modifier);
}

void FrmVelmira::Habiller(const Aspect &aspect) {
  setWindowTitle(aspect.titre);
  Peindre(ui_->PanneauCommandes, aspect.couleur);
  ui_->Fond->Choisir(aspect.fondUni);
  ui_->Liste->ChangerTaillePolice(aspect.points);
  ui_->Fiche->ChangerTaillePolice(aspect.points);
  ui_->Fiche->MettreAdresseEnGras(aspect.adresseEnGras);
  ui_->Fiche->MontrerAdresseImportee(aspect.adresseImportee);
}

void FrmVelmira::ChargerJour() {
  const QDate jour = session_.plateforme.horloge.Maintenant().date();
  ui_->LblDay->setText(session_.plateforme.langue.dayName(jour.dayOfWeek()) + u"   "_s +
                       jour.toString(u"dd/MM/yyyy"_s));
  Ignorer([&] {  // the day goes without its saints
    if (const auto saints = ChargerSaints(session_.dossiers.AppPath))
      ui_->LblSaint->setText(SaintsDuJour(*saints, jour));
  });
}

ListeVelmiras &FrmVelmira::Liste() const {
  return *ui_->Liste;
}

FrmVelmira::Actions FrmVelmira::LesActions() const {
  return {ui_->mnuExport,        ui_->mnuImport,        ui_->mnuVelmira,   ui_->mnuEnvoyer,
          ui_->mnuImporterAutre, ui_->mnuExporterAutre, ui_->mnuJF,        ui_->mnuFete,
          ui_->mnuDate,          ui_->mnuLiaison,       ui_->mnuChemin,    ui_->mnuTransfert,
          ui_->mnuRepComp,       ui_->mnuRecup,         ui_->mnuRestaurer, ui_->mnuSauvegardes,
          ui_->mnuMasquer,       ui_->mnuAide};
}

void FrmVelmira::PoserMenuMemora(QMenu *menu) {
  mnuInv3_ = menu;
  menuBar()->insertMenu(ui_->mnuAide->menuAction(), menu);
}

CompteRendu &FrmVelmira::LeCompteRendu() const {
  return *ui_->Fait;
}

void FrmVelmira::Raccrocher() {
  appel_->Raccrocher();
}

void FrmVelmira::AccorderSelection() {
  ui_->Liste->Arbre().Selectionner(fiche_.Index());
}

void FrmVelmira::NoeudClic(Cle index, Qt::MouseButton bouton) {
  const auto accord = qScopeGuard([this] { AccorderSelection(); });
  if (!fiche_.LibererNotes()) return;
  depart_.clear();
  if (index == 0) {
    fiche_.Effacer();
  } else if (!fiche_.Montrer(index)) {
    AnnoncerDisparition();
  } else if (bouton == Qt::RightButton && ui_->mnuClickDroit->isChecked()) {
    mnuInv2_->popup(QCursor::pos());
  }
}

void FrmVelmira::AnnoncerDisparition() {
  Ignorer([this] { Actualiser(); });
  session_.plateforme.boites.Information(TexteDisparu());
}

void FrmVelmira::Actualiser() {
  if (!session_.base.Ouverte()) return;
  const qint64 changements = session_.base.Changements();
  if (changements == changements_) return;
  const bool suspens = fiche_.NotesEnSuspens();
  const auto fiche = fiche_.Relire();
  const bool fidele = ui_->Liste->Actualiser(suspens ? fiche_.Index() : 0);
  changements_ = fidele ? changements : 0;
  if (fiche && ui_->Liste->Arbre().Modele().Enfant(fiche_.Index()).isValid()) {
    fiche_.Actualiser(*fiche);
  } else if (!suspens && fiche_.Index() != 0) {
    fiche_.Effacer();
    depart_ = fiche ? kPlusDansLaListe : TexteDisparu();
  }
  AccorderSelection();
}

void FrmVelmira::ActualiserAuRepos() {
  if (QThread::currentThread()->loopLevel() != niveau_ ||
      QApplication::activePopupWidget() != nullptr)
    return;
  Ignorer([this] {
    const Attente attente(session_.base, 0ms);
    Actualiser();
  });
  SuivreDonnees();
}

void FrmVelmira::SuivreReprise() {
  Ignorer([this] { Actualiser(); });
  depart_.clear();  // who has gone was not another's doing
  SuivreDonnees();
}

void FrmVelmira::SuivreDonnees() {
  Ignorer([this] {
    Base &base = session_.base;
    const Attente attente(base, 0ms);
    const std::pair suivi(session_.plateforme.horloge.Maintenant().date(), base.LEtat());
    InviterSelonDonnees();
    if (suivi_ == suivi) return;
    suivi_ = suivi;
    ui_->Liste->LireAnniversaires();
  });
}

void FrmVelmira::InviterSelonDonnees() {
  using Invitation = PanneauFiche::Invitation;
  const bool vide = session_.base.Ouverte() && TableAdresse(session_.base).EstVide();
  const bool choix = ui_->Liste->Arbre().Modele().NombreEnfants() > 0;
  const bool autre = ui_->Fiche->Inviter(vide    ? Invitation::Commencer
                                         : choix ? Invitation::Choisir
                                                 : Invitation::Rien);
  // A list without anybody has nothing for the keys.
  const bool libre = focusWidget() == nullptr || focusWidget() == &ui_->Liste->Arbre();
  if (autre && vide && libre) ui_->Fiche->ViserPremier();
}

void FrmVelmira::OuvrirFiche(Cle index) {
  if (!ui_->Liste->Arbre().Modele().Enfant(index).isValid()) commandes_.AfficherTous();
  TrouverFiche(index);
}

bool FrmVelmira::MontrerFiche(const QString &cible) {
  if (!session_.base.Ouverte()) return false;
  premierPassage_ = false;  // it would show the first one
  const QList<Cle> fiches =
      FichesDemandees(TableAdresse(session_.base), cible, session_.plateforme.utilisateur);
  if (fiches.size() == 1) {
    OuvrirFiche(fiches.constFirst());
    return fiche_.Index() == fiches.constFirst();
  }
  ui_->Liste->ChercherPartout(cible);
  return false;
}

void FrmVelmira::OuvrirCategorie(const QString &categorie) {
  const Cle index = fiche_.Index();
  ui_->Liste->AfficherCategorie(categorie);
  TrouverFiche(index);
}

void FrmVelmira::TrouverFiche(Cle index) {
  ArbreVelmiras &arbre = ui_->Liste->Arbre();
  arbre.setFocus();
  if (const QModelIndex noeud = arbre.Modele().Enfant(index); noeud.isValid()) arbre.Trouver(noeud);
}

void FrmVelmira::Nouveau() {
  if (!fiche_.LibererNotes()) return;
  commandes_.Nouveau();
}

void FrmVelmira::Modifier() {
  if (!fiche_.LibererNotes()) return;
  commandes_.ModifierSelection();
}

void FrmVelmira::Supprimer() {
  const Cle choisie = fiche_.Index();
  Actualiser();
  if (choisie != fiche_.Index())
    session_.plateforme.boites.Information(kPlusDansLaListe);
  else
    commandes_.SupprimerSelection();
}

void FrmVelmira::ImprimerListe() {
  if (!fiche_.LibererNotes()) return;
  impression_.Imprimer();
}

void FrmVelmira::MontrerCalendrier() {
  FrmCalendrier(session_.plateforme.horloge.Maintenant().date(), session_.plateforme.langue, this)
      .exec();
}

void FrmVelmira::AllerAuxAlertes() {
  if (!fiche_.LibererNotes()) return;
  RetourDeModule = true;
  emit AlertesDemandees();
}

void FrmVelmira::MasquerProteges(bool masquer) {
  auto retour = qScopeGuard([this, masquer] { ui_->mnuMasquer->setChecked(!masquer); });
  EcrireMarques(masquer);
  retour.dismiss();
}

void FrmVelmira::EcrireMarques(bool masquer) {
  const Sablier sablier;
  TableAdresse(session_.base).MasquerProteges(session_.plateforme.utilisateur, masquer);
}

void FrmVelmira::Agrandir() {
  if (!commandes_.NoeudChoisi().isValid()) return;
  if (!fiche_.LibererNotes()) return;
  Ignorer([this] { Actualiser(); });  // what is on display can be enlarged without the table
  if (!depart_.isEmpty()) {
    session_.plateforme.boites.Information(depart_);
    return;
  }
  loupe_ = std::make_unique<FrmLoupe>(fiche_.Montree());
  connect(loupe_.get(), &FrmLoupe::Quittee, this, [this] {
    show();
    activateWindow();
    loupe_.release()->deleteLater();  // it is still at work
  });
  loupe_->show();
  hide();
}

void FrmVelmira::AllerAuxEnveloppes() {
  if (!fiche_.LibererNotes()) return;
  RetourDeModule = true;
  emit EnveloppeDemandee(fiche_.Index(), fiche_.Adresse());
}

void FrmVelmira::AllerAuxEnveloppesDeCategorie() {
  if (!fiche_.LibererNotes()) return;
  RetourDeModule = true;
  emit EnveloppesDeCategorieDemandees(ui_->Liste->Categorie());
}

bool FrmVelmira::PreparerFermeture() {
  if (!fiche_.LibererNotes()) return false;
  appel_->Raccrocher();
  // A database that cannot be written keeps nobody in the program, whatever comes after the end.
  if (ui_->mnuMasquer->isChecked() &&
      Signaler(session_.plateforme.boites, [this] { EcrireMarques(false); }))
    ui_->mnuMasquer->setChecked(false);
  return true;
}

void FrmVelmira::VenirDevant() {
  ArbreVelmiras &arbre = ui_->Liste->Arbre();
  if (premierPassage_) {
    premierPassage_ = false;
    arbre.CliquerPremier();
  }
  if (RetourDeModule) {
    RetourDeModule = false;
    arbre.CliquerSelection();
  }
  // Later: what brought the window here may be at work.
  QMetaObject::invokeMethod(this, &FrmVelmira::ActualiserAuRepos, Qt::QueuedConnection);
}

bool FrmVelmira::event(QEvent *evenement) {
  const bool traite = QMainWindow::event(evenement);
  const bool devant =
      evenement->type() == QEvent::WindowActivate || evenement->type() == QEvent::Show;
  if (devant && isVisible()) VenirDevant();
  return traite;
}

void FrmVelmira::closeEvent(QCloseEvent *evenement) {
  evenement->ignore();  // the program decides when its windows go
  emit FermetureDemandee();
}
