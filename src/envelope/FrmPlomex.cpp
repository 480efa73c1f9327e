#include "envelope/FrmPlomex.h"

#include "directory/Annulation.h"
#include "directory/Repertoire.h"
#include "envelope/CommandesCommentaire.h"
#include "envelope/CommandesReglages.h"
#include "envelope/ExpediteurDefaut.h"
#include "envelope/FormatsEnveloppe.h"
#include "envelope/FrmCarnet.h"
#include "envelope/FrmTaille.h"
#include "envelope/FrmVueAV.h"
#include "envelope/ImpressionMultiple.h"
#include "envelope/MiseEnPage.h"
#include "envelope/PageEtalon.h"
#include "envelope/Raccourci.h"
#include "envelope/Tirage.h"
#include "help/Aide.h"
#include "platform/Erreurs.h"
#include "storage/Historique.h"
#include "ui/Brancheur.h"
#include "ui/CompteRendu.h"
#include "ui/Debrancher.h"
#include "ui/EtiquetteZone.h"
#include "ui/Garde.h"
#include "ui/Icones.h"
#include "ui/MesurePolices.h"
#include "ui/Sablier.h"
#include "ui_FrmPlomex.h"

#include <QAction>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QScopeGuard>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int kToucheEntree = 13;

/// The keys of the keyboard that stand for a virtual key code.
QList<QKeySequence> Touches(int raccourci) {
  const auto touche = LibelleRaccourci(raccourci);
  if (!touche) return {};
  if (raccourci == kToucheEntree)
    return {QKeySequence(Qt::Key_Return), QKeySequence(Qt::Key_Enter)};
  return {QKeySequence(static_cast<Qt::Key>(Qt::Key_F5 + touche->place))};
}

std::unique_ptr<Ui::FrmPlomex> Dessiner(FrmPlomex &fenetre) {
  auto ui = std::make_unique<Ui::FrmPlomex>();
  ui->setupUi(&fenetre);
  return ui;
}

}  // namespace

FrmPlomex::FrmPlomex(Session &session, Repertoire &repertoire)
    : session_(session),
      repertoire_(repertoire),
      imprimantes_(session.dossiers.AppPath),
      ui_(Dessiner(*this)),
      zones_(session, etat_, ui_->Enveloppe) {
  RemplirBarre();
  ui_->Fait->Relier(session_.plateforme, *this);
  PoserAnnulation();
  Brancher();
  Preparer();
}

FrmPlomex::~FrmPlomex() {
  DebrancherEnfants(*this);
}

void FrmPlomex::PoserAnnulation() {
  const auto *annulation = new Annulation(session_, {this, {}, {}, ui_->Fait});
  ui_->mnuFichier->insertActions(ui_->mnuAccueil,
                                 {annulation->mnuAnnuler(), annulation->mnuRetablir()});
  ui_->mnuFichier->insertSeparator(ui_->mnuAccueil);
  // Whichever window it was asked for in.
  connect(&session_.base.LHistorique(), &Historique::Repris, this, [this](const Reprise &reprise) {
    const QString defaut = CheminDefaut(session_.dossiers.AppPath);
    const auto &fichiers = reprise.inverse.fichiers;
    const auto fichier = std::ranges::find(fichiers, defaut, &FichierSuivi::chemin);
    Ignorer([&] { zones_.Reprendre(fichier == fichiers.end() ? nullptr : &*fichier); });
  });
}

void FrmPlomex::Brancher() {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(ui_->CboFormat, &QComboBox::activated, &FrmPlomex::ChoisirFormat);
  brancher(ui_->mnuAccueil, &FrmPlomex::RepertoireDemande);
  brancher(ui_->mnuQuitter, &FrmPlomex::close);
  brancher(ui_->mnuNouvAdresse, [this] { SaisirAdresse(FrmNouveau::Mode::Adresse); });
  brancher(ui_->mnuExp, [this] { SaisirAdresse(FrmNouveau::Mode::Expediteurs); });
  brancher(ui_->mnuCarnet, &FrmPlomex::ChoisirDansCarnet);
  brancher(ui_->mnuMultiple, &FrmPlomex::ImprimerPlusieurs);
  brancher(ui_->mnuImprime, &FrmPlomex::Imprimer);
  brancher(ui_->mnuApercu, &FrmPlomex::Apercu);
  new CommandesReglages(session_, imprimantes_, etat_,
                        {ui_->mnuConfigure, ui_->mnuOptions, ui_->mnuVCP},
                        {this, [this] { tirage_->Oublier(); }, [this] { zones_.Reformater(); },
                         [this] { MajEtiquettes(); }});
  commentaire_ = std::make_unique<CommandesCommentaire>(
      session_, etat_, ui_->Enveloppe->Commentaire(),
      CommandesCommentaire::Actions{ui_->mnuIns, ui_->mnuEfface, ui_->mnuG, ui_->mnus,
                                    ui_->mnuAnnCom, ui_->mnuIntComMult});
  tirage_ = std::make_unique<Tirage>(session_, imprimantes_, zones_, *commentaire_, *ui_->Fait);
  brancher(ui_->mnuInsCom, [this] { commentaire_->Inserer(); });
  ui_->Enveloppe->addAction(ui_->mnuInsCom);
  ui_->Enveloppe->setContextMenuPolicy(Qt::ActionsContextMenu);
  ui_->mnuversion->setText(u"Version "_s + QStringLiteral(VELMIRA_VERSION));
}

void FrmPlomex::Preparer() {
  for (const FormatEnveloppe &format : kFormatsEnveloppe)
    ui_->CboFormat->addItem(QString::fromUtf16(format.libelle));
  QFont chasseFixe;  // blanks make the columns of the list
  chasseFixe.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
  ui_->CboFormat->setFont(chasseFixe);
  constexpr int kIcone = 16;
  PoserIcone(ui_->IcoImprimante, Icone(u"document-print"), kIcone);
  PoserIcone(ui_->IcoOrientation, Icone(u"page-simple"), kIcone);
  PoserIcone(ui_->IcoPolice, Icone(u"draw-text"), kIcone);
  PoserIcone(ui_->IcoRaccourci, Icone(u"configure-shortcuts"), kIcone);
  ui_->CmdConfigure->setDefaultAction(ui_->mnuConfigure);
  ui_->CmdOptions->setDefaultAction(ui_->mnuOptions);
  ui_->LblVersion->setText(u"[Version "_s + QStringLiteral(VELMIRA_VERSION) + u']');
}

void FrmPlomex::Charger() {
  Signaler(session_.plateforme.boites, [this] { CompleterNoms(); });
  zones_.ViderAdresse();
  Signaler(session_.plateforme.boites, [this] { zones_.ChargerExpediteur(); });
  ChoisirFormat(kFormatDL);
  MajEtiquettes();
  RendreFocus();
}

void FrmPlomex::CompleterNoms() {
  // The system is asked only where it has to be: it may be slow to answer.
  const auto completer = [this](QString &nom, qsizetype longueur, const auto &noms) {
    if (!PeutEtreAbrege(nom, longueur)) return;
    if (const auto complet = NomComplet(noms(), nom, longueur))
      nom = *complet;
    else
      introuvables_.append(nom);
  };
  ReglagesPlomex &plomex = session_.reglages.plomex;
  for (QString *police : {&plomex.PoliceA, &plomex.PoliceE})
    completer(*police, kLongueurPolice, [this] { return session_.plateforme.polices.Familles(); });
  if (!PeutEtreAbrege(plomex.Imprimante, kLongueurImprimante)) return;
  Imprimante &imprimante = session_.plateforme.imprimante;
  imprimante.Demander(this, [this, completer, &imprimante](bool repondu) {
    if (!repondu) return;
    completer(session_.reglages.plomex.Imprimante, kLongueurImprimante,
              [&imprimante] { return imprimante.NomsConnus(); });
    MajEtiquettes();
  });
}

QString FrmPlomex::AvecMarque(const QString &nom) const {
  return introuvables_.contains(nom) ? u"(introuvable) "_s + nom : nom;
}

QMenu *FrmPlomex::mnuAide() const {
  return ui_->mnuAide;
}

void FrmPlomex::PoserMenuMemora(QMenu *menu) {
  mnuInv3_ = menu;
  menuBar()->insertMenu(ui_->mnuAide->menuAction(), menu);
}

void FrmPlomex::MontrerAdresse(const AdresseComposee &adresse, Cle fiche) {
  zones_.EcrireAdresse(adresse, fiche);
  MajEtiquettes();
  RendreFocus();
}

void FrmPlomex::MajEtiquettes() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  ui_->LblImprimante->setText(AvecMarque(plomex.Imprimante));
  MajPapier();
  const QString policeE = introuvables_.contains(plomex.PoliceE)
                              ? u"   (introuvable) expéditeur : "_s + plomex.PoliceE
                              : QString();
  const Police police = PoliceAdresse(plomex);
  ui_->LblPolice->setText(u"Police "_s + AvecMarque(police.nom) + u"   "_s +
                          QString::number(police.points) + u"   "_s +
                          (police.gras ? u"G"_s : u""_s) + policeE);
  const auto touche = LibelleRaccourci(plomex.Raccourci);
  ui_->LblRaccourci->setText(touche ? u"Raccourci pour imprimer : "_s + touche->nom : u""_s);

  commentaire_->MajEtiquette();
  PreparerRaccourci();
  zones_.Disposer();
}

void FrmPlomex::MajPapier() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  const PapierEnveloppe choix = imprimantes_.PapierDe(plomex.Imprimante);
  ui_->LblOrientation->setText(
      choix == PapierEnveloppe::GrandCote                  ? u"Enveloppe par son grand côté"_s
      : choix == PapierEnveloppe::PetitCote                ? u"Enveloppe par son petit côté"_s
      : plomex.Orientation == OrientationFeuille::Portrait ? u"Orientation en mode portrait"_s
      : plomex.Orientation == OrientationFeuille::Paysage  ? u"Orientation en mode paysage"_s
                                                           : u""_s);
  const Papier papier = PapierPour(plomex, choix, {etat_.LargeurEnv, etat_.HauteurEnv});
  const QString correction =
      TexteCorrection(imprimantes_.CorrectionDe(plomex.Imprimante, papier), papier.page);
  ui_->LblCorrection->setText(correction.isEmpty() ? QString() : u"corrigée : "_s + correction);
  ui_->LblCorrection->setVisible(!correction.isEmpty());
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

void FrmPlomex::RemplirBarre() {
  const auto puisFocus = [this](auto commande) {
    return [this, commande] {
      commande();
      RendreFocus();
    };
  };
  BarreBoutons &barre = *ui_->Barre;
  barre.Preparer(session_.plateforme, u"BTPH"_s);
  const auto ajouter = [&](int numero, const char16_t *icone, const QString &texte,
                           std::function<void()> executer, const QAction *menu = nullptr) {
    return barre.Ajouter(numero, {icone, texte, std::move(executer), texte, kBulleBleue,
                                  menu == nullptr ? QKeySequence() : menu->shortcut()});
  };
  imprimer_ = ajouter(3, u"document-print", u"Imprimer"_s, puisFocus([this] { Imprimer(); }),
                      ui_->mnuImprime);
  ajouter(8, u"document-print-preview", u"Vue avant impression"_s, puisFocus([this] { Apercu(); }),
          ui_->mnuApercu);
  barre.Separer();
  ajouter(1, u"view-pim-contacts", u"Carnet d'adresses"_s,
          puisFocus([this] { ChoisirDansCarnet(); }), ui_->mnuCarnet);
  ajouter(0, u"document-new", u"Nouvelle adresse"_s,
          puisFocus([this] { SaisirAdresse(FrmNouveau::Mode::Adresse); }), ui_->mnuNouvAdresse);
  ajouter(5, u"user-identity", u"Expéditeur"_s,
          puisFocus([this] { SaisirAdresse(FrmNouveau::Mode::Expediteurs); }));
  ajouter(7, u"edit-comment", u"Ajouter un commentaire"_s,
          puisFocus([this] { commentaire_->Inserer(); }));
  barre.Separer();
  ajouter(
      6, u"go-home", u"Accueil Velmira"_s, [this] { emit RepertoireDemande(); }, ui_->mnuAccueil);
  ajouter(9, u"contact-new", u"Nouveau velmira"_s, puisFocus([this] { NouveauVelmira(); }));
  ajouter(10, u"appointment-reminder", u"Module Alertes"_s,
          puisFocus([this] { emit AlertesDemandees(); }));
  ajouter(11, u"note", u"Memora"_s, [this] {
    RendreFocus();  // it is there again when the menu has gone
    ui_->Barre->Derouler(mnuInv3_);
  });
  barre.Separer();
  ajouter(4, u"help-contents", u"Aide"_s, puisFocus([this] {
            OuvrirAide(session_.plateforme.coquille, session_.dossiers.AppPath, SommaireAide());
          }));
  barre.Ecarter();
  ajouter(
      2, u"application-exit", u"Quitter ?"_s, [this] { close(); }, ui_->mnuQuitter);
}

void FrmPlomex::RendreFocus() {
  if (session_.reglages.plomex.Raccourci == kToucheEntree)
    imprimer_->setFocus();
  else
    ui_->Enveloppe->Adresse()->setFocus();
}

void FrmPlomex::ChoisirFormat(int index) {
  if (index == kFormatPersonnalise) {
    DemanderTaille();
    return;
  }
  const FormatEnveloppe &format = kFormatsEnveloppe[static_cast<std::size_t>(index)];
  etat_.HauteurEnv = format.hauteur;
  etat_.LargeurEnv = format.largeur;
  format_ = index;
  ui_->CboFormat->setCurrentIndex(index);
  zones_.Disposer();
  MajPapier();
}

void FrmPlomex::DemanderTaille() {
  FrmTaille dialogue(session_.plateforme.boites, etat_.LargeurEnv, etat_.HauteurEnv, this);
  if (dialogue.exec() != QDialog::Accepted) {
    ui_->CboFormat->setCurrentIndex(format_);
    return;
  }
  etat_.HauteurEnv = dialogue.Hauteur();
  etat_.LargeurEnv = dialogue.Largeur();
  format_ = kFormatPersonnalise;
  if (etat_.HauteurEnv == Millimetres() || etat_.LargeurEnv == Millimetres()) {
    session_.plateforme.boites.Information(
        u"Vous n'avez pas renseigné la taille de l'enveloppe !"_s);
    ChoisirFormat(kFormatDL);
  }
  zones_.Disposer();
  MajPapier();
}

void FrmPlomex::SaisirAdresse(FrmNouveau::Mode mode) {
  FrmNouveau(session_, repertoire_, zones_, mode, this).exec();
  commentaire_->MajEtiquette();
}

void FrmPlomex::ChoisirDansCarnet() {
  FrmCarnet carnet(session_, repertoire_, FrmCarnet::Mode::Un, categorieCarnet_, this);
  if (carnet.exec() == QDialog::Accepted) zones_.EcrireAdresse(carnet.Adresse(), carnet.Choisi());
}

void FrmPlomex::ImprimerPlusieurs() {
  session_.plateforme.boites.Information(
      u"o -   Ce menu vous permet d'imprimer successivement plusieurs enveloppes.\n\n"
      "o -   Vous devrez cocher, dans votre carnet d'adresses, les cases situées devant les "
      "adresses à imprimer (assurez-vous d'avoir un nombre suffisant d'enveloppes dans votre "
      "bac).\n\n"
      "o -   Cliquez ensuite sur le bouton\"Ecrire\"."_s);
  ImprimerCoches(false, [](FrmCarnet &) {});
}

bool FrmPlomex::ImprimerCategorie(const QString &categorie, const QList<NoeudListe> &montres) {
  return ImprimerCoches(true,
                        [&](FrmCarnet &carnet) { carnet.CocherCategorie(categorie, montres); });
}

bool FrmPlomex::ImprimerCoches(bool dUnTrait, const std::function<void(FrmCarnet &)> &preparer) {
  etat_.ImpressionMultiple = true;
  const auto fin = qScopeGuard([this] {
    etat_.ImpressionMultiple = false;
    commentaire_->MajEtiquette();
  });
  commentaire_->MajEtiquette();
  ImpressionMultiple run(session_, zones_, *tirage_, this);
  if (const auto reste = run.ChoisirReste()) {
    Tirer([&] { return run.Reprendre(*reste); });
    return true;
  }
  FrmCarnet carnet(session_, repertoire_, FrmCarnet::Mode::Plusieurs, categorieCarnet_, this);
  preparer(carnet);
  if (carnet.exec() != QDialog::Accepted) return false;
  if (carnet.Destinataires().isEmpty()) {
    if (dUnTrait) tirage_->Dire({}, 0, carnet.SansAdresse());
    return true;
  }
  Tirer([&] {
    return run.Imprimer({carnet.Titre(), carnet.Destinataires(), carnet.SansAdresse(), dUnTrait});
  });
  return true;
}

void FrmPlomex::Tirer(const std::function<bool()> &tirer) {
  auto refus = qScopeGuard([this, avant = zones_.Montree()] { zones_.Remontrer(avant); });
  if (!tirer()) return;
  refus.dismiss();
  zones_.ViderAdresse();
  if (session_.reglages.plomex.Minimise) showMinimized();
}

void FrmPlomex::NouveauVelmira() {
  repertoire_.Ajouter(this, {.imprimer = [this](const Correspondant &fiche) {
                        zones_.EcrireAdresse(ComposerAdresse(AdresseSaisie::De(fiche)));
                        tirage_->Imprimer();
                      }});
}

void FrmPlomex::Imprimer() {
  Ignorer([this] {  // without the database the envelope is printed as it is shown
    const Sablier sablier;
    zones_.Actualiser();
  });
  if (tirage_->Imprimer() && session_.reglages.plomex.Minimise) showMinimized();
}

void FrmPlomex::Apercu() {
  ContenuEnveloppe contenu = zones_.Contenu();
  contenu.commentaire = !etat_.Commentaire.isEmpty();
  FrmVueAV apercu(etat_.LargeurEnv, etat_.HauteurEnv,
                  MettreEnApercu(session_.reglages.plomex, etat_, contenu, MesurePolices()));
  hide();
  apercu.exec();
  show();
  activateWindow();
}

bool FrmPlomex::event(QEvent *evenement) {
  const bool traite = QMainWindow::event(evenement);
  if (evenement->type() == QEvent::WindowActivate)
    Ignorer([this] {
      const Attente attente(session_.base, 0ms);
      zones_.Actualiser();
    });
  return traite;
}

void FrmPlomex::keyPressEvent(QKeyEvent *evenement) {
  const int touche = evenement->key();
  const bool entree = touche == Qt::Key_Return || touche == Qt::Key_Enter;
  if (!entree || evenement->isAutoRepeat() || !ui_->Enveloppe->Adresse()->hasFocus() ||
      zones_.EstVide()) {
    QMainWindow::keyPressEvent(evenement);
    return;
  }
  Signaler(session_.plateforme.boites, [this] { Imprimer(); });
}

void FrmPlomex::closeEvent(QCloseEvent *evenement) {
  evenement->ignore();  // the program decides when its windows go
  emit FermetureDemandee();
}
