#include "directory/FrmVelmira.h"

#include "address/ChaineAdresse.h"
#include "address/MiseEnLignes.h"
#include "calendar/Saints.h"
#include "directory/Age.h"
#include "directory/Apparence.h"
#include "directory/Categories.h"
#include "directory/CommandesAppel.h"
#include "directory/CommandesRecherche.h"
#include "directory/FrmCalendrier.h"
#include "directory/FrmLoupe.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "storage/Tables.h"
#include "ui/Alignement.h"
#include "ui/Debrancher.h"
#include "ui/Echelle.h"
#include "ui/Garde.h"
#include "ui/Icones.h"
#include "ui/Sablier.h"
#include "ui_FrmVelmira.h"

#include <QCloseEvent>
#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<Ui::FrmVelmira> Preparer(FrmVelmira &fenetre) {
  auto ui = std::make_unique<Ui::FrmVelmira>();
  ui->setupUi(&fenetre);
  return ui;
}

}  // namespace

FrmVelmira::FrmVelmira(Session &session)
    : session_(session),
      ui_(Preparer(*this)),
      liste_(session, {ui_->CboCat, ui_->TV, ui_->LblNomBE}, [this] { QuitterFiche(); }),
      commandes_(
          session, liste_,
          {this, [this] { return ui_->mnuMasquer->isChecked(); }, [this] { EffacerFiche(); }}),
      impression_(session, liste_, this),
      mnuInv_(new QMenu(this)),
      mnuInv2_(new QMenu(this)) {
  setWindowIcon(IconeProgramme());
  RemplirBarre();
  ui_->CmdFavoris->setIcon(Icone(u"bookmark-new"));
  const double echelle = Echelle(session_.reglages.rtcolor.TailleFenetre);
  ui_->Partage->setSizes({qRound(280 * echelle), qRound(620 * echelle)});
  ui_->Partage->setStretchFactor(1, 1);

  Boites &boites = session_.plateforme.boites;
  connect(ui_->Barre, &BarreBoutons::Survolee, ui_->LblBouton, &QLabel::setText);
  connect(ui_->CboCat, &QComboBox::activated, this,
          Garde(boites, [this](int) { liste_.Charger(); }));
  connect(ui_->TV, &ArbreVelmiras::NoeudClique, this,
          Garde(boites, [this](const QModelIndex &noeud, Qt::MouseButton bouton) {
            NoeudClic(noeud, bouton);
          }));
  connect(ui_->Fiche, &PanneauFiche::NotesQuittees, this,
          Garde(boites, [this] { EnregistrerNotes(); }));
  connect(ui_->CmdFavoris, &QToolButton::clicked, this,
          Garde(boites, [this](bool) { commandes_.AjouterAuxFavoris(); }));
  recherche_ = std::make_unique<CommandesRecherche>(boites, liste_, ui_->TxtRR, ui_->CmdCherche);
  apparence_ =
      std::make_unique<Apparence>(session_, *ui_, *this, [this] { emit RelanceDemandee(); });
  BrancherMenus();
  Charger();
}

FrmVelmira::~FrmVelmira() {
  DebrancherEnfants(*this);
}

void FrmVelmira::RemplirBarre() {
  BarreBoutons &barre = *ui_->Barre;
  barre.Preparer(session_.plateforme, u"ImgBouton"_s, false);
  barre.Ajouter({u"contact-new",
                 u"  Nouveau velmira"_s,
                 [this] { Nouveau(); },
                 {u"Nouveau\nvelmira"_s, kBulleBleue}});
  barre.Ajouter({u"document-edit",
                 u"  Modifie les données"_s,
                 [this] { Modifier(); },
                 {u"Modifier\nles données"_s, kBulleBleue}});
  barre.Ajouter({u"edit-delete",
                 u"  Supprime le velmira"_s,
                 [this] { commandes_.SupprimerSelection(); },
                 {u"Supprime\nle velmira"_s, kBulleRouge}});
  barre.Separer();
  barre.Ajouter({u"zoom-in",
                 u"  Agrandit les données"_s,
                 [this] { Agrandir(); },
                 {u"Agrandit\nles données"_s, kBulleNoire}});
  barre.Ajouter({u"document-print",
                 u"  Imprime la liste"_s,
                 [this] { ImprimerListe(); },
                 {u"Imprime\nla liste"_s, kBulleJaune}});
  barre.Separer();
  barre.Ajouter({u"view-calendar",
                 u"  Calendrier"_s,
                 [this] { MontrerCalendrier(); },
                 {u"Calendrier"_s, kBulleBleue}});
  barre.Ajouter({u"color-picker",
                 u"  Change la couleur du fond"_s,
                 [this] { apparence_->ChoisirCouleur(); },
                 {u"Couleur\ndu fond"_s, kBulleNoire}});
  barre.Separer();
  barre.Ajouter({u"mail-message-new",
                 u"  Imprimer une enveloppe"_s,
                 [this] { AllerAuxEnveloppes(); },
                 {u"Imprimer\nune\nenveloppe"_s, kBulleJaune},
                 QKeySequence(u"Ctrl+E"_s)});
  barre.Ajouter({u"application-exit",
                 u"  Quitter Velmira ?"_s,
                 [this] { close(); },
                 {u"Quitter ?"_s, kBulleNoire},
                 QKeySequence(u"Ctrl+Q"_s)});
  barre.Separer();
  boutonAppel_ = barre.Ajouter({u"call-start",
                                u"  Appeler...?"_s,
                                [this] { appel_->Demander(); },
                                {u"Appeler ...?"_s, kBulleJaune}});
  barre.Ajouter({u"document-swap",
                 u"  Importer ou exporter les données de Velmira"_s,
                 [this] { ui_->Barre->Derouler(mnuInv_); },
                 {u"Exporter\nou\nimporter \nles données"_s, kBulleRouge}});
  barre.Ajouter({u"x-office-spreadsheet",
                 u"  Exporter les données dans Excel"_s,
                 [this] { emit ClasseurDemande(); },
                 {u"Exporter les données dans un fichier Excel"_s, kBulleBrune}});
  barre.Separer();
  barre.Ajouter({u"appointment-reminder",
                 u"  Module des alertes"_s,
                 [this] { AllerAuxAlertes(); },
                 {u"Module Alertes"_s, kBulleBrune}});
  barre.Ajouter({u"note",
                 u"  Memora"_s,
                 [this] { ui_->Barre->Derouler(mnuInv3_); },
                 {u"Memora"_s, kBulleRouge}});
}

void FrmVelmira::Charger() {
  const QString &appPath = session_.dossiers.AppPath;
  ChargerJour();
  Ignorer([&] { CreerDossier(appPath + u"/Photos"_s); });
  for (const QString &reste : {u"Anniversare.ini"_s, u"Dorvel.exe"_s})  // of older versions
    Ignorer([&] { EffacerFichier(appPath + u'/' + reste); });
  ui_->mnuversion->setText(u"Version "_s + QStringLiteral(VELMIRA_VERSION));

  const bool lue = Signaler(session_.plateforme.boites, [&] {
    liste_.RemplirCategories();
    ui_->CboCat->setCurrentIndex(session_.reglages.rtcolor.OuvrirSurFavoris ? 1 : 0);
    liste_.Charger();
  });
  if (!lue) EffacerFiche();
  const auto nombre = ui_->TV->Modele().NombreEnfants();
  ui_->LblNomBE->setText(nombre > 0 ? QString::number(nombre) + u" enregistrement(s) "_s
                                    : u"Pas d'enregistrement"_s);
}

void FrmVelmira::ChargerJour() {
  const QDate jour = session_.plateforme.horloge.Maintenant().date();
  ui_->LblDay->setText(session_.plateforme.langue.dayName(jour.dayOfWeek()) + u"   "_s +
                       jour.toString(u"dd/MM/yyyy"_s));
  if (const auto saints = ChargerSaints(session_.dossiers.AppPath))
    ui_->LblSaint->setText(SaintsDuJour(*saints, jour));
}

void FrmVelmira::BrancherMenus() {
  const auto brancher = [this](QAction *action, auto commande) {
    connect(action, &QAction::triggered, this, Garde(session_.plateforme.boites, commande));
  };
  brancher(ui_->mnuMasquer, [this](bool masquer) {
    const Sablier sablier;
    TableAdresse(session_.base).MasquerProteges(session_.plateforme.utilisateur, masquer);
  });
  brancher(ui_->mnumodifier, [this](bool) { Modifier(); });
  connect(ui_->TV, &QTreeView::doubleClicked, this,
          Garde(session_.plateforme.boites, [this](const QModelIndex &noeud) {
            if (noeud != ui_->TV->Modele().Racine()) Modifier();
          }));
  brancher(ui_->mnuSupprimer, [this](bool) { commandes_.SupprimerSelection(); });
  brancher(ui_->mnuAgrandir, [this](bool) { Agrandir(); });
  brancher(ui_->mnuImpEnv, [this](bool) { AllerAuxEnveloppes(); });
  appel_ = new CommandesAppel(
      session_,
      {ui_->mnuTel,
       ui_->mnuMasquerTel,
       ui_->mnuPort,
       {ui_->mnuCom_0, ui_->mnuCom_1, ui_->mnuCom_2, ui_->mnuCom_3, ui_->mnuCom_4},
       ui_->mnuVolume,
       ui_->mnuADSL,
       boutonAppel_,
       ui_->Fiche},
      this);
  mnuInv_->setObjectName(u"mnuInv"_s);
  mnuInv_->addActions({ui_->mnuExport, ui_->mnuImport, ui_->mnuVelmira, ui_->mnuEnvoyer});
  mnuInv2_->setObjectName(u"mnuInv2"_s);
  mnuInv2_->addActions({ui_->mnumodifier, ui_->mnuSupprimer, ui_->mnuAgrandir, ui_->mnuImpEnv});
}

QPushButton *FrmVelmira::CmdExcel() const {
  return ui_->CmdExcel;
}

QPushButton *FrmVelmira::CmdAnnExp() const {
  return ui_->CmdAnnExp;
}

FrmVelmira::Actions FrmVelmira::LesActions() const {
  return {ui_->mnuExport,  ui_->mnuImport, ui_->mnuVelmira, ui_->mnuEnvoyer, ui_->mnuJF,
          ui_->mnuFete,    ui_->mnuDate,   ui_->mnuLiaison, ui_->mnuChemin,  ui_->mnuTransfert,
          ui_->mnuRepComp, ui_->mnuRecup,  ui_->mnuAide};
}

void FrmVelmira::PoserMenuMemora(QMenu *menu) {
  mnuInv3_ = menu;
  menuBar()->insertMenu(ui_->mnuAide->menuAction(), menu);
}

void FrmVelmira::Raccrocher() {
  appel_->Raccrocher();
}

void FrmVelmira::QuitterFiche() {
  EnregistrerNotes();
  if (liste_.Categorie() != ToutesCategories()) ui_->TxtRR->clear();
  EffacerFiche();
}

void FrmVelmira::EffacerFiche() {
  IndexCourant = 0;
  adresseAffichee_ = {};
  session_.AdresseCourante.chaine.clear();
  ui_->Fiche->Vider();
}

void FrmVelmira::EnregistrerNotes() {
  if (IndexCourant == 0 || !ui_->Fiche->NotesModifiees()) return;
  ui_->Fiche->NotesPrises();
  TableAdresse(session_.base).EcrireCommentaires(IndexCourant, ui_->Fiche->Notes());
}

void FrmVelmira::NoeudClic(const QModelIndex &noeud, Qt::MouseButton bouton) {
  EnregistrerNotes();
  const Cle index = Index(noeud);
  if (index == 0) {
    EffacerFiche();
    return;
  }
  const auto fiche = TableAdresse(session_.base).Lire(index);
  if (!fiche) {
    EffacerFiche();
    session_.plateforme.boites.Information(TexteDisparu());
    return;
  }
  MontrerFiche(*fiche);
  if (ui_->mnuClickDroit->isChecked() && bouton == Qt::RightButton) mnuInv2_->popup(QCursor::pos());
}

void FrmVelmira::MontrerFiche(const Correspondant &fiche) {
  IndexCourant = fiche.Index;
  adresseAffichee_ = ComposerAdresse(AdresseSaisie::De(fiche));
  session_.AdresseCourante = adresseAffichee_;
  QString lignes = MettreEnLignes(adresseAffichee_, Role::Destinataire, session_.reglages).texte;
  ui_->Fiche->Montrer(fiche,
                      {.age = LigneAge(fiche.DDN),
                       .adresse = lignes.replace(u'*', u'\n'),
                       .alignementAdresse = AlignementTexte(session_.reglages.plomex.AlignA)});
  if (!ui_->Fiche->MontrerPhoto(fiche.Photo)) {
    TableAdresse(session_.base).EffacerPhoto(fiche.Index);
    session_.plateforme.boites.Information(
        u"Le chemin du fichier 'Photo' est incorrect, pensez à le modifier."_s);
  }
}

QString FrmVelmira::LigneAge(const QString &ddn) const {
  switch (session_.reglages.rtcolor.AffichageNaissance) {
    case AffichageNaissance::Date:
      return ddn;
    case AffichageNaissance::Age:
      return TexteAge(ddn, session_.plateforme.horloge.Maintenant().date());
    default:
      return u""_s;
  }
}

void FrmVelmira::Nouveau() {
  EnregistrerNotes();
  commandes_.Nouveau();
}

void FrmVelmira::Modifier() {
  EnregistrerNotes();
  commandes_.ModifierSelection();
}

void FrmVelmira::ImprimerListe() {
  EnregistrerNotes();
  impression_.Imprimer();
}

void FrmVelmira::MontrerCalendrier() {
  FrmCalendrier(session_.plateforme.horloge.Maintenant().date(), session_.plateforme.langue, this)
      .exec();
}

void FrmVelmira::AllerAuxAlertes() {
  EnregistrerNotes();
  RetourDeModule = true;
  emit AlertesDemandees();
}

void FrmVelmira::CliquerRacine() {
  if (const QModelIndex racine = ui_->TV->Modele().Racine(); racine.isValid())
    ui_->TV->SelectionnerEtCliquer(racine);
}

void FrmVelmira::Agrandir() {
  const QModelIndex noeud = commandes_.NoeudChoisi();
  if (!noeud.isValid()) return;
  EnregistrerNotes();
  const auto fiche = TableAdresse(session_.base).Lire(Index(noeud));
  loupe_ = std::make_unique<FrmLoupe>(fiche.value_or(Correspondant()));
  connect(loupe_.get(), &FrmLoupe::Quittee, this, [this] {
    show();
    activateWindow();
    loupe_.release()->deleteLater();  // it is still at work
  });
  loupe_->show();
  hide();
}

void FrmVelmira::AllerAuxEnveloppes() {
  EnregistrerNotes();
  RetourDeModule = true;
  session_.AdresseCourante = adresseAffichee_;
  emit EnveloppeDemandee();
}

void FrmVelmira::PreparerFermeture() {
  EnregistrerNotes();
  appel_->Raccrocher();
  if (!ui_->mnuMasquer->isChecked()) return;
  TableAdresse(session_.base).MasquerProteges(session_.plateforme.utilisateur, false);
  ui_->mnuMasquer->setChecked(false);
}

void FrmVelmira::VenirDevant() {
  if (premierPassage_) {
    premierPassage_ = false;
    const ModeleListe &modele = ui_->TV->Modele();
    if (modele.NombreEnfants() > 0)
      ui_->TV->SelectionnerEtCliquer(modele.index(0, 0, modele.Racine()));
  }
  if (RetourDeModule) {
    RetourDeModule = false;
    ui_->TV->CliquerSelection();
  }
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
