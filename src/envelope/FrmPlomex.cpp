#include "envelope/FrmPlomex.h"

#include "directory/Repertoire.h"
#include "envelope/CommandesCommentaire.h"
#include "envelope/FormatsEnveloppe.h"
#include "envelope/FrmCarnet.h"
#include "envelope/FrmConfigure.h"
#include "envelope/FrmOptions.h"
#include "envelope/FrmTaille.h"
#include "envelope/FrmVueAV.h"
#include "envelope/ImpressionMultiple.h"
#include "envelope/MiseEnPage.h"
#include "envelope/Raccourci.h"
#include "envelope/Tirage.h"
#include "help/Aide.h"
#include "platform/Erreurs.h"
#include "storage/Tables.h"
#include "ui/Debrancher.h"
#include "ui/EtiquetteZone.h"
#include "ui/Garde.h"
#include "ui/Icones.h"
#include "ui/MesurePolices.h"
#include "ui/Sablier.h"
#include "ui_FrmPlomex.h"

#include <QCloseEvent>
#include <QScopeGuard>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int kNouvelleAdresse = 0, kCarnet = 1, kQuitter = 2, kImprimer = 3, kAide = 4,
              kExpediteur = 5, kAccueil = 6, kCommentaire = 7, kApercu = 8, kNouveauVelmira = 9,
              kAlertes = 10, kMemora = 11;
constexpr int kToucheEntree = 13;

const QList<DescriptionBouton> kCommandes{
    {u"document-new", u"Nouvelle adresse", true},
    {u"view-pim-contacts", u"Carnet d'adresses", true, true},
    {u"application-exit", u"Quitter ?", true},
    {u"document-print", u"Imprimer", true},
    {u"help-contents", u"Aide", true, true},
    {u"user-identity", u"Expéditeur", true},
    {u"go-home", u"Accueil Velmira", true},
    {u"edit-comment", u"Ajouter un commentaire", true},
    {u"document-print-preview", u"Vue avant impression", true, true},
    {u"contact-new", u"Nouveau velmira", true},
    {u"appointment-reminder", u"Module Alertes", true},
    {u"note", u"Memora", true},
};

/// The keys of the keyboard that stand for a virtual key code.
QList<QKeySequence> Touches(int raccourci) {
  constexpr int kF5 = 116;
  if (LibelleRaccourci(raccourci).isEmpty()) return {};
  if (raccourci == kToucheEntree)
    return {QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)};
  return {QKeySequence(static_cast<Qt::Key>(Qt::Key_F5 + raccourci - kF5))};
}

std::unique_ptr<Ui::FrmPlomex> Preparer(FrmPlomex &fenetre) {
  auto ui = std::make_unique<Ui::FrmPlomex>();
  ui->setupUi(&fenetre);
  return ui;
}

}  // namespace

FrmPlomex::FrmPlomex(Session &session, Repertoire &repertoire)
    : session_(session),
      repertoire_(repertoire),
      ui_(Preparer(*this)),
      zones_(session, ui_->Enveloppe) {
  setWindowIcon(IconeProgramme());
  ui_->Barre->Remplir(u"BTPH"_s, kCommandes, true);
  Boites &boites = session_.plateforme.boites;
  connect(ui_->Barre, &BarreBoutons::Clique, this,
          Garde(boites, [this](int index) { CommandeBarre(index); }));
  connect(ui_->CboFormat, &QComboBox::activated, this,
          Garde(boites, [this](int index) { ChoisirFormat(index); }));
  connect(ui_->LblDocument, &QLabel::linkActivated, this,
          [this](const QString &chemin) { session_.plateforme.coquille.Ouvrir(chemin); });
  BrancherMenus();
  Charger();
}

FrmPlomex::~FrmPlomex() {
  DebrancherEnfants(*this);
}

void FrmPlomex::BrancherMenus() {
  const auto brancher = [this](QAction *action, auto commande) {
    connect(action, &QAction::triggered, this,
            Garde(session_.plateforme.boites, [commande](bool) { commande(); }));
  };
  brancher(ui_->mnuAccueil, [this] { emit RepertoireDemande(); });
  brancher(ui_->mnuQuitter, [this] { close(); });
  brancher(ui_->mnuNouvAdresse, [this] { SaisirAdresse(FrmNouveau::Mode::Adresse); });
  brancher(ui_->mnuExp, [this] { SaisirAdresse(FrmNouveau::Mode::Expediteurs); });
  brancher(ui_->mnuCarnet, [this] { ChoisirDansCarnet(); });
  brancher(ui_->mnuMultiple, [this] { ImprimerPlusieurs(); });
  brancher(ui_->mnuImprime, [this] { Imprimer(); });
  brancher(ui_->mnuApercu, [this] { Apercu(); });
  brancher(ui_->mnuConfigure, [this] { Configurer(); });
  brancher(ui_->mnuOptions, [this] { ChoisirOptions(); });
  brancher(ui_->mnuVCP, [this] { RelierVilles(); });
  commentaire_ = std::make_unique<CommandesCommentaire>(
      session_, ui_->Enveloppe->Commentaire(),
      CommandesCommentaire::Actions{ui_->mnuIns, ui_->mnuEfface, ui_->mnuG, ui_->mnus,
                                    ui_->mnuAnnCom, ui_->mnuIntComMult});
  tirage_ = std::make_unique<Tirage>(session_, zones_, *commentaire_, ui_->LblDocument);
  brancher(ui_->mnuInsCom, [this] { commentaire_->Inserer(); });
  ui_->Enveloppe->addAction(ui_->mnuInsCom);
  ui_->Enveloppe->setContextMenuPolicy(Qt::ActionsContextMenu);
  ui_->mnuversion->setText(u"Version "_s + QStringLiteral(VELMIRA_VERSION));
}

void FrmPlomex::Charger() {
  for (const FormatEnveloppe &format : kFormatsEnveloppe)
    ui_->CboFormat->addItem(QString::fromUtf16(format.libelle));
  ui_->LblVersion->setText(u"[Version "_s + QStringLiteral(VELMIRA_VERSION) + u']');
  EtatEnveloppe &etat = session_.enveloppe;
  etat.LiaisonCP = u" - "_s;
  LireAncienneLiaison(session_.dossiers.AppPath, etat.LiaisonCP);
  ui_->LblDocument->hide();
  zones_.ViderAdresse();
  Signaler(session_.plateforme.boites, [this] { zones_.ChargerExpediteur(); });
  ChoisirFormat(kFormatDL);
  MajEtiquettes();
}

QMenu *FrmPlomex::mnuAide() const {
  return ui_->mnuAide;
}

void FrmPlomex::PoserMenuMemora(QMenu *menu) {
  mnuInv3_ = menu;
  menuBar()->insertMenu(ui_->mnuAide->menuAction(), menu);
}

void FrmPlomex::MontrerAdresse() {
  zones_.MontrerAdresse();
  MajEtiquettes();
  RendreFocus();
}

void FrmPlomex::MajEtiquettes() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  ui_->LblImprimante->setText(plomex.Imprimante);
  ui_->LblOrientation->setText(plomex.Orientation == 1   ? u"Orientation en mode portrait"_s
                               : plomex.Orientation == 2 ? u"Orientation en mode paysage"_s
                                                         : u""_s);
  ui_->LblPolice->setText(u"Police "_s + plomex.PoliceA + u"   "_s +
                          QString::number(plomex.TailleA) + u"   "_s +
                          (plomex.GrasA == 1 ? u"G"_s : u""_s));
  const QString touche = LibelleRaccourci(plomex.Raccourci).mid(1);
  ui_->LblRaccourci->setText(touche.isEmpty() ? u""_s : u"Raccourci pour imprimer : "_s + touche);

  commentaire_->MajEtiquette();
  PreparerRaccourci();
  zones_.Disposer();
}

void FrmPlomex::PreparerRaccourci() {
  qDeleteAll(raccourcis_);
  raccourcis_.clear();
  for (const QKeySequence &touche : Touches(session_.reglages.plomex.Raccourci)) {
    // A shortcut of the window comes before whatever has the focus, and the key held down does not
    // print again.
    auto *raccourci = new QShortcut(touche, this);
    raccourci->setAutoRepeat(false);
    connect(raccourci, &QShortcut::activated, this,
            Garde(session_.plateforme.boites, [this] { Imprimer(); }));
    raccourcis_.append(raccourci);
  }
}

void FrmPlomex::CommandeBarre(int index) {
  switch (index) {
    case kQuitter:
      close();
      return;
    case kAccueil:
      emit RepertoireDemande();
      return;
    case kNouvelleAdresse:
      SaisirAdresse(FrmNouveau::Mode::Adresse);
      break;
    case kCarnet:
      ChoisirDansCarnet();
      break;
    case kExpediteur:
      SaisirAdresse(FrmNouveau::Mode::Expediteurs);
      break;
    case kNouveauVelmira:
      NouveauVelmira();
      break;
    case kAide:
      OuvrirAide(session_.plateforme.coquille, session_.dossiers.AppPath, SommaireAide());
      break;
    case kAlertes:
      emit AlertesDemandees();
      break;
    case kMemora: {
      const QToolButton *bouton = ui_->Barre->Bouton(index);
      mnuInv3_->popup(bouton->mapToGlobal(QPoint(0, bouton->height())));
      return;
    }
    case kImprimer:
      Imprimer();
      break;
    case kCommentaire:
      commentaire_->Inserer();
      break;
    case kApercu:
      Apercu();
      break;
    default:
      break;
  }
  RendreFocus();
}

void FrmPlomex::RendreFocus() {
  if (session_.reglages.plomex.Raccourci == kToucheEntree)
    ui_->Barre->Bouton(kImprimer)->setFocus();
  else
    ui_->Enveloppe->Adresse()->setFocus();
}

void FrmPlomex::ChoisirFormat(int index) {
  EtatEnveloppe &etat = session_.enveloppe;
  if (index == kFormatPersonnalise) {
    DemanderTaille();
    return;
  }
  const FormatEnveloppe &format = kFormatsEnveloppe[static_cast<std::size_t>(index)];
  etat.HauteurEnv = format.hauteur;
  etat.LargeurEnv = format.largeur;
  format_ = index;
  ui_->CboFormat->setCurrentIndex(index);
  zones_.Disposer();
}

void FrmPlomex::DemanderTaille() {
  EtatEnveloppe &etat = session_.enveloppe;
  FrmTaille dialogue(etat.LargeurEnv, etat.HauteurEnv, this);
  if (dialogue.exec() != QDialog::Accepted) {
    ui_->CboFormat->setCurrentIndex(format_);
    return;
  }
  etat.HauteurEnv = dialogue.Hauteur();
  etat.LargeurEnv = dialogue.Largeur();
  format_ = kFormatPersonnalise;
  if (etat.HauteurEnv == 0 || etat.LargeurEnv == 0) {
    session_.plateforme.boites.Information(
        u"Vous n'avez pas renseigné la taille de l'enveloppe !"_s);
    ChoisirFormat(kFormatDL);
  }
  zones_.Disposer();
}

void FrmPlomex::SaisirAdresse(FrmNouveau::Mode mode) {
  FrmNouveau(session_, repertoire_, zones_, mode, this).exec();
  commentaire_->MajEtiquette();
}

void FrmPlomex::ChoisirDansCarnet() {
  FrmCarnet carnet(session_, repertoire_, FrmCarnet::Mode::Un, categorieCarnet_, this);
  if (carnet.exec() == QDialog::Accepted) zones_.EcrireAdresse(carnet.Adresse());
}

void FrmPlomex::ImprimerPlusieurs() {
  session_.plateforme.boites.Information(
      u"o -   Ce menu vous permet d'imprimer successivement plusieurs enveloppes.\n\n"
      "o -   Vous devrez cocher, dans votre carnet d'adresses, les cases situées devant les "
      "adresses à imprimer (assurez-vous d'avoir un nombre suffisant d'enveloppes dans votre "
      "bac).\n\n"
      "o -   Cliquez ensuite sur le bouton\"Ecrire\"."_s);
  EtatEnveloppe &etat = session_.enveloppe;
  etat.ImpressionMultiple = 1;
  const auto fin = qScopeGuard([this, &etat] {
    etat.ImpressionMultiple = 0;
    commentaire_->MajEtiquette();
  });
  commentaire_->MajEtiquette();
  FrmCarnet carnet(session_, repertoire_, FrmCarnet::Mode::Plusieurs, categorieCarnet_, this);
  if (carnet.exec() != QDialog::Accepted || carnet.Adresses().isEmpty()) return;
  const auto vide = qScopeGuard([this] { zones_.ViderAdresse(); });
  ImpressionMultiple run(
      session_, zones_, [this] { return tirage_->Imprimer(); }, this);
  if (run.Imprimer(carnet.Adresses()) && session_.reglages.plomex.Minimise == 1) showMinimized();
}

void FrmPlomex::NouveauVelmira() {
  repertoire_.Ajouter(this, {.imprimer = [this](const Correspondant &fiche) {
                        zones_.EcrireAdresse(ComposerAdresse(AdresseSaisie::De(fiche)));
                        tirage_->Imprimer();
                      }});
}

void FrmPlomex::Imprimer() {
  if (tirage_->Imprimer() && session_.reglages.plomex.Minimise == 1) showMinimized();
}

void FrmPlomex::Apercu() {
  const EtatEnveloppe &etat = session_.enveloppe;
  ContenuEnveloppe contenu = zones_.Contenu();
  contenu.commentaire = !etat.Commentaire.isEmpty();
  FrmVueAV apercu(Millimetres(static_cast<double>(etat.LargeurEnv)),
                  Millimetres(static_cast<double>(etat.HauteurEnv)),
                  MettreEnApercu(session_.reglages.plomex, etat, contenu, MesurePolices()));
  hide();
  apercu.exec();
  show();
  activateWindow();
}

void FrmPlomex::Configurer() {
  auto sablier = std::make_optional<Sablier>();  // a print server may be slow to answer
  FrmConfigure dialogue(session_.plateforme.boites, session_.plateforme.imprimante.Noms(),
                        session_.reglages.plomex, this);
  sablier.reset();
  if (dialogue.exec() != QDialog::Accepted) return;
  session_.reglages.plomex = dialogue.Saisie();
  MajEtiquettes();
}

void FrmPlomex::ChoisirOptions() {
  // The list of fonts takes its time on a system with many of them.
  auto sablier = std::make_optional<Sablier>();
  FrmOptions dialogue(session_.plateforme.boites, session_.plateforme.polices.Familles(),
                      {session_.reglages.plomex, session_.enveloppe.LiaisonCP}, this);
  sablier.reset();
  if (dialogue.exec() != QDialog::Accepted) return;
  session_.reglages.plomex = dialogue.Saisie().plomex;
  session_.enveloppe.LiaisonCP = dialogue.Saisie().liaisonCP;
  zones_.Reformater();
  MajEtiquettes();
  EcrireLiaison(session_.dossiers.AppPath, session_.reglages.SeparateurTel,
                session_.enveloppe.LiaisonCP);
}

void FrmPlomex::RelierVilles() {
  Boites &boites = session_.plateforme.boites;
  boites.Information(
      u"Vous n'avez pas à faire cette opération si vous n'avez pas réintègré les données de la "
      "version 1.0.19 de Plomex'Print."_s);
  if (boites.Question(
          Boites::Titre(),
          u"Voulez-vous recréer les liens entre villes et codes postaux (liens détruits "
          "suite à une erreur dans la version 1.0.19) ?"_s) != Boites::Reponse::Oui)
    return;
  TableVille villes(session_.base);
  if (villes.Toutes().isEmpty()) {
    boites.Information(u"Aucune ville n'est enregistrée !"_s);
    return;
  }
  villes.Relier();
  boites.Information(u"Opération terminée avec succès.\nVous n'aurez pas à la renouveler."_s);
}

void FrmPlomex::closeEvent(QCloseEvent *evenement) {
  evenement->ignore();  // the program decides when its windows go
  emit FermetureDemandee();
}
