#include "directory/ListeVelmiras.h"

#include "directory/FrmClavier.h"
#include "platform/Saisie.h"
#include "storage/Historique.h"
#include "ui/Brancheur.h"
#include "ui/Bulle.h"
#include "ui/CompteRendu.h"
#include "ui/Debrancher.h"
#include "ui/Icones.h"
#include "ui/Sablier.h"
#include "ui/Theme.h"
#include "ui_ListeVelmiras.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScrollBar>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// What stands in the combo and at the root while the list is what a search has found.
QString Recherche() {
  return u"Recherche"_s;
}

/// Whether the combo can show a category.
bool EstProposee(const QStringList &categories, const QString &categorie) {
  return categorie == RechercheRapide() || categories.contains(categorie);
}

}  // namespace

ListeVelmiras::ListeVelmiras(QWidget *parent)
    : QWidget(parent), ui_(std::make_unique<Ui::ListeVelmiras>()) {
  ui_->setupUi(this);
  ui_->CmdFavoris->setIcon(Icone(u"bookmark-new"));
  ui_->LblNomBE->setText(TexteCompte(0));
  ui_->Parti->Nommer(u"LblParti"_s, u"LblAnnuler"_s);
  ui_->Parti->hide();
  connect(ui_->Parti, &CompteRendu::Dit, ui_->Parti, &QWidget::setVisible);
  MontrerChoix(false);
}

ListeVelmiras::~ListeVelmiras() {
  DebrancherEnfants(*this);
}

void ListeVelmiras::Relier(Session &session, std::function<bool()> avant) {
  session_ = &session;
  avant_ = std::move(avant);
  filtre_.utilisateur = session.plateforme.utilisateur;
  recherche_ = std::make_unique<RechercheAJour>(session, session.base);
  ui_->TV->Modele().Preciser([this](Cle cle) { return Preciser(cle); });
  Brancher();
  RelierAnniversaires();
  connect(&session.base.LHistorique(), &Historique::Change, ui_->Parti, &CompteRendu::Effacer);
  constexpr int kLargeurBulle = 80;
  Horloge &horloge = session.plateforme.horloge;
  PoserBulle(ui_->CmdCherche, horloge, {u"Recherche rapide"_s, kBulleBrune, kLargeurBulle});
  PoserBulle(ui_->TxtRR, horloge,
             {u"Nom, ville, numéro, notes…\n(Ctrl+F)"_s, kBulleBrune, 2 * kLargeurBulle});
  PoserBulle(ui_->CmdFavoris, horloge,
             {u"Ajouter aux favoris\n(Ctrl+D)"_s, kBulleBrune, kLargeurBulle});
}

void ListeVelmiras::Brancher() {
  const Brancheur brancher(session_->plateforme.boites, this);
  brancher(ui_->CboCat, &QComboBox::activated, [this](int rang) {
    if (!EstResultat() || rang > 0) AfficherCategorie(Categorie());
  });
  brancher(ui_->TxtRR, &QLineEdit::textEdited, &ListeVelmiras::Chercher);
  // Emptied by another category too, which ends the search.
  connect(ui_->TxtRR, &QLineEdit::textChanged, this, [this](const QString &texte) {
    if (texte.isEmpty()) RechercheEnCours = false;
  });
  brancher(ui_->TxtRR, &ChampRecherche::Abandonnee, &ListeVelmiras::Abandonner);
  brancher(ui_->TxtRR, &ChampRecherche::ListeDemandee, &ListeVelmiras::PasserALaListe);
  brancher(ui_->TV, &ArbreVelmiras::Frappee, &ListeVelmiras::Frapper);
  brancher(ui_->TV, &ArbreVelmiras::Abandonnee, &ListeVelmiras::Abandonner);
  brancher(recherche_.get(), &RechercheAJour::Prete, &ListeVelmiras::Reprendre);
  brancher(ui_->CmdCherche, &ListeVelmiras::ChoisirInitiale);
  connect(ui_->TV, &ArbreVelmiras::NoeudClique, this,
          [this](const QModelIndex &noeud, Qt::MouseButton bouton) {
            emit Cliquee(Index(noeud), bouton);
          });
  connect(ui_->TV, &QTreeView::doubleClicked, this, [this](const QModelIndex &noeud) {
    // Another one than was clicked stays selected where that one could not be shown.
    if (noeud != ui_->TV->Modele().Racine() && noeud == ui_->TV->Selection()) emit DoubleCliquee();
  });
  connect(ui_->CmdFavoris, &QToolButton::clicked, this, &ListeVelmiras::FavoriDemande);
  connect(ui_->CmdExcel, &QPushButton::clicked, this, &ListeVelmiras::ExportDemande);
  connect(ui_->CmdAnnExp, &QPushButton::clicked, this, &ListeVelmiras::ExportAbandonne);
}

void ListeVelmiras::RelierAnniversaires() {
  ui_->LstAnniversaires->Relier(*session_);
  Colorer(ui_->LblAnniversaires, EncreDiscrete(palette()));
  ui_->LblAnniversaires->hide();
  connect(ui_->LstAnniversaires, &ListeAnniversaires::Remplie, ui_->LblAnniversaires,
          &QLabel::setVisible);
  connect(ui_->LstAnniversaires, &ListeAnniversaires::Choisi, this,
          &ListeVelmiras::AnniversaireChoisi);
}

void ListeVelmiras::LireAnniversaires() {
  ui_->LstAnniversaires->Lire();
}

ArbreVelmiras &ListeVelmiras::Arbre() const {
  return *ui_->TV;
}

QString ListeVelmiras::Categorie() const {
  return ui_->CboCat->currentText();
}

void ListeVelmiras::Ouvrir(bool surFavoris) {
  filtre_.categorie = surFavoris ? Favoris() : ToutesCategories();
  RemplirCategories();
  Charger(filtre_);
  ui_->TV->setFocus();
  if (const auto nombre = ui_->TV->Modele().NombreEnfants(); nombre > 0)
    ui_->LblNomBE->setText(QString::number(nombre) + u" enregistrement(s) "_s);
}

void ListeVelmiras::RemplirCategories(const std::function<void()> &adieu) {
  const QStringList categories = CategoriesAuChoix(session_->base);
  if (EstProposee(categories, filtre_.categorie)) {
    PoserCategories(categories);
    return;
  }
  if (adieu) adieu();
  Actualiser(Index(ui_->TV->Selection()));
}

void ListeVelmiras::SuivreCategories(const RegleCategories &regle) {
  QString &categorie = filtre_.categorie;
  if (!EstEnregistree(categorie)) return RemplirCategories();
  categorie =
      regle(u'*' + categorie + u'*').split(u'*', Qt::SkipEmptyParts).value(0, ToutesCategories());
  Actualiser(Index(ui_->TV->Selection()));
}

bool ListeVelmiras::EstVidee(const QString &categories) const {
  if (!EstEnregistree(filtre_.categorie) || EstDansCategorie(categories, filtre_.categorie))
    return false;
  const auto noeuds = SousSablier([&] { return Lister(filtre_, {}); });
  return !noeuds || noeuds->empty();
}

void ListeVelmiras::PoserCategories(const QStringList &categories) {
  ui_->CboCat->clear();
  ui_->CboCat->addItems(categories);
  AccorderCombo();
}

void ListeVelmiras::AccorderCombo() {
  QComboBox *combo = ui_->CboCat;
  while (combo->count() > 0 && combo->itemText(0) != ToutesCategories()) combo->removeItem(0);
  if (filtre_.categorie == RechercheRapide()) combo->insertItem(0, RechercheRapide());
  if (EstResultat()) combo->insertItem(0, Recherche());
  combo->setCurrentIndex(
      EstResultat()
          ? 0
          : combo->findText(filtre_.categorie, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

QString ListeVelmiras::Titre() const {
  return (EstResultat() ? Recherche() : filtre_.categorie).toUpper();
}

PrecisionListe ListeVelmiras::Preciser(Cle cle) const {
  if (!EstResultat()) return {};
  if (cle == 0)
    return {filtre_.categorie == ToutesCategories() ? u"dans toutes les catégories"_s
                                                    : u"dans « %1 »"_s.arg(filtre_.categorie),
            {}};
  const RechercheTotale *lue = recherche_->Derniere();
  return lue == nullptr ? PrecisionListe() : lue->Precision(cle, cherche_);
}

std::optional<std::vector<NoeudListe>> ListeVelmiras::Lister(const FiltreListe &filtre,
                                                             const QString &cherche) const {
  if (!session_->base.Ouverte()) return std::nullopt;
  if (!cherche.isEmpty()) return ListerTrouves(filtre, cherche);
  if (entiere_ && entiere_->filtre == filtre && entiere_->etat == session_->base.LEtat())
    return entiere_->noeuds;
  const TableAdresse table(session_->base);
  auto noeuds = ListerVelmiras(table, filtre);
  if (noeuds.empty() && table.EstVide()) return std::nullopt;
  return noeuds;
}

std::vector<NoeudListe> ListeVelmiras::ListerTrouves(const FiltreListe &filtre,
                                                     const QString &cherche) const {
  RechercheTotale *recherche = recherche_->Courante();
  return recherche == nullptr ? std::vector<NoeudListe>() : recherche->Chercher(cherche, filtre);
}

bool ListeVelmiras::Charger(const FiltreListe &filtre, const QString &cherche) {
  const auto accord = qScopeGuard([this] { AccorderCombo(); });
  auto noeuds = SousSablier([&] { return Lister(filtre, cherche); });
  if (!avant_()) return false;
  ModeleListe &modele = ui_->TV->Modele();
  if (cherche.isEmpty())
    entiere_.reset();
  else if (!EstResultat() && filtre == filtre_)
    entiere_ = {filtre, modele.Noeuds(), session_->base.LEtat()};
  filtre_ = filtre;
  cherche_ = cherche;
  attendue_ = EstResultat() && recherche_->Derniere() == nullptr;
  if (noeuds)
    ui_->TV->Remplir(Titre(), std::move(*noeuds));
  else
    modele.Vider();
  MettreAJourCompte();
  return true;
}

void ListeVelmiras::Afficher(const QString &categorie, const QString &lettre) {
  const bool finie = EstResultat() || categorie != ToutesCategories();
  FiltreListe filtre = filtre_;
  filtre.categorie = categorie;
  filtre.lettre = lettre;
  if (!Charger(filtre)) return;
  if (finie) ui_->TxtRR->clear();
  ui_->TV->setFocus();
}

void ListeVelmiras::AfficherCategorie(const QString &categorie) {
  Afficher(categorie, filtre_.lettre);
}

void ListeVelmiras::QuitterResultat() {
  if (EstResultat()) AfficherCategorie(filtre_.categorie);
}

bool ListeVelmiras::Restreindre(const QString &cherche) {
  return cherche_ == cherche || Charger(filtre_, cherche);
}

bool ListeVelmiras::Actualiser(Cle retenue) {
  const QStringList categories = CategoriesAuChoix(session_->base);
  FiltreListe filtre = filtre_;
  if (!EstProposee(categories, filtre.categorie)) filtre.categorie = ToutesCategories();
  entiere_.reset();
  auto noeuds = Lister(filtre, cherche_).value_or(std::vector<NoeudListe>());
  ModeleListe &modele = ui_->TV->Modele();
  const QModelIndex noeud = modele.Enfant(retenue);
  const bool parti =
      noeud.isValid() && std::ranges::find(noeuds, retenue, &NoeudListe::index) == noeuds.end();
  if (parti) noeuds.insert(PlaceDansListe(noeuds, Texte(noeud)), {Texte(noeud), retenue});

  filtre_ = filtre;
  PoserCategories(categories);
  if (noeuds.empty() && !modele.Racine().isValid()) return true;
  const auto avant = modele.NombreEnfants();
  ui_->TV->Accorder(Titre(), std::move(noeuds));
  if (EstResultat()) ui_->TV->viewport()->update();  // what is said below the names
  if (modele.NombreEnfants() != avant) MettreAJourCompte();
  return !parti && (!EstResultat() || recherche_->EstAJour());
}

void ListeVelmiras::Chercher(const QString &saisie) {
  QString texte = saisie;
  if (!RechercheEnCours && !saisie.isEmpty()) {
    depart_ = {filtre_, Index(ui_->TV->Selection())};
    if (Categorie() != ToutesCategories()) texte = DemanderOu(saisie);
    Ignorer(
        [this] { recherche_->Courante(); });  // many records are being read while the user types
  }
  RechercheEnCours = !texte.isEmpty();
  ui_->TxtRR->setFocus();
  if (!texte.isEmpty())
    Trouver(texte);
  else if (ui_->TV->Modele().CochesMontrees() || Restreindre({}))
    CliquerRacine();
}

QString ListeVelmiras::DemanderOu(const QString &saisie) {
  RechercheEnCours = true;
  const auto [reponse, suite] = session_->plateforme.boites.QuestionEnFrappe(
      Boites::Titre(),
      u"Voulez-vous faire une recherche dans tous vos velmiras,\n"
      "et non pas seulement dans la catégorie affichée ?"_s);
  if (!suite.isEmpty()) ui_->TxtRR->setText(saisie + suite);
  if (reponse == Boites::Reponse::Oui) {
    FiltreListe tous = filtre_;
    tous.categorie = ToutesCategories();
    Charger(tous);
  }
  return saisie + suite;
}

void ListeVelmiras::Trouver(const QString &saisie) {
  ModeleListe &modele = ui_->TV->Modele();
  // Who is ticked must stay in sight.
  const bool fixe = modele.CochesMontrees() || (!EstResultat() && modele.NombreEnfants() == 0);
  QModelIndex noeud = EstResultat() && !fixe ? QModelIndex() : modele.Commencant(saisie);
  if (!noeud.isValid()) {
    QString debut = saisie;
    while (debut.endsWith(u' ')) debut.chop(1);  // a word of which nothing is typed yet
    const bool commence = Commence(debut);
    if (!fixe && !Restreindre(commence ? QString() : SansBlancs(debut))) return;
    if (commence)
      noeud = modele.Commencant(saisie);
    else
      noeud = fixe ? modele.Racine() : modele.index(0, 0, modele.Racine());
  }
  if (noeud.isValid()) ui_->TV->Trouver(noeud);
}

void ListeVelmiras::Reprendre() {
  if (!attendue_ || QApplication::activeModalWidget() != nullptr) return;
  const QString cherche = cherche_;
  if (Charger(filtre_, cherche)) ui_->TV->CliquerPremier();
}

bool ListeVelmiras::Commence(const QString &debut) const {
  if (!EstResultat()) return ui_->TV->Modele().Commencant(debut).isValid();
  if (debut.startsWith(cherche_, Qt::CaseInsensitive)) return false;  // not even that began a name
  const RechercheTotale *recherche = recherche_->Courante();
  return recherche != nullptr && recherche->Commence(debut, filtre_);
}

void ListeVelmiras::Frapper(const QString &texte) {
  if (!EstResultat()) depart_ = {filtre_, Index(ui_->TV->Selection())};
  ui_->TxtRR->setFocus();
  ui_->TxtRR->setText(texte);
  Chercher(texte);
}

void ListeVelmiras::ChercherPartout(const QString &texte) {
  Abandonner();
  if (Categorie() != ToutesCategories()) AfficherCategorie(ToutesCategories());
  ui_->TxtRR->setText(texte);
  Chercher(texte);
}

void ListeVelmiras::PasserALaListe(QKeyEvent *touche) {
  ui_->TV->setFocus();
  const bool valider = touche->key() == Qt::Key_Return || touche->key() == Qt::Key_Enter;
  if (!valider) QApplication::sendEvent(ui_->TV, touche);
}

void ListeVelmiras::Abandonner() {
  const bool enCours = RechercheEnCours, duChamp = ui_->TxtRR->hasFocus();
  ui_->TV->setFocus();
  if (!enCours) return;
  if (duChamp && !ui_->TV->Modele().CochesMontrees())
    QuitterVers(depart_.filtre, depart_.fiche);
  else if (EstResultat() && !ui_->TV->Modele().CochesMontrees())
    QuitterVers(filtre_, Index(ui_->TV->Selection()));
  ui_->TxtRR->clear();
}

void ListeVelmiras::QuitterVers(FiltreListe filtre, Cle fiche) {
  if (!EstProposee(CategoriesAuChoix(session_->base), filtre.categorie))
    filtre.categorie = ToutesCategories();
  if ((EstResultat() || filtre != filtre_) && !Charger(filtre)) return;
  const QModelIndex noeud = ui_->TV->Modele().Enfant(fiche);
  if (noeud.isValid())
    ui_->TV->Trouver(noeud);
  else
    CliquerRacine();
}

void ListeVelmiras::AllerALaRecherche() {
  ui_->TxtRR->setFocus(Qt::ShortcutFocusReason);
  ui_->TxtRR->selectAll();
}

void ListeVelmiras::ChoisirInitiale() {
  FrmClavier clavier(ui_->CmdCherche);
  clavier.exec();
  const auto &lettre = clavier.Lettre();
  if (!lettre) return;
  if (!lettre->isEmpty())
    Afficher(RechercheRapide(), *lettre);
  else if (Categorie() != ToutesCategories())
    AfficherCategorie(ToutesCategories());
}

void ListeVelmiras::Inserer(const NoeudListe &noeud) {
  ModeleListe &modele = ui_->TV->Modele();
  if (!modele.Racine().isValid()) ui_->TV->Remplir(Titre(), {});
  modele.Inserer(noeud);
}

void ListeVelmiras::Remplacer(const NoeudListe &noeud) {
  ModeleListe &modele = ui_->TV->Modele();
  if (!modele.Enfant(noeud.index).isValid()) return;
  const int haut = ui_->TV->verticalScrollBar()->value();
  QuitterNoeud(noeud.index);
  modele.Remplacer(noeud);
  // The root, which is chosen meanwhile, has come in sight.
  ui_->TV->verticalScrollBar()->setValue(haut);
  if (EstResultat()) Actualiser(noeud.index);  // it may be found by something else, or no more
}

void ListeVelmiras::Retirer(Cle index) {
  ModeleListe &modele = ui_->TV->Modele();
  if (!modele.Enfant(index).isValid()) return;
  QuitterNoeud(index);
  modele.Retirer(modele.Enfant(index));
}

void ListeVelmiras::QuitterNoeud(Cle index) {
  // The view would go to a neighbour, whom nobody has asked for.
  if (Index(ui_->TV->Selection()) == index) ui_->TV->Selectionner(0);
}

void ListeVelmiras::DireDepart(const QString &nom, const std::function<void()> &annuler) {
  ui_->Parti->Dire(nom + u" supprimé –"_s, {u"Annuler"_s, {}, annuler}, 10s);
}

CompteRendu &ListeVelmiras::LigneDepart() const {
  return *ui_->Parti;
}

void ListeVelmiras::CliquerRacine() {
  if (const QModelIndex racine = ui_->TV->Modele().Racine(); racine.isValid())
    ui_->TV->SelectionnerEtCliquer(racine);
}

void ListeVelmiras::MettreAJourCompte() {
  const auto nombre = ui_->TV->Modele().NombreEnfants();
  QString texte = TexteCompte(nombre);
  if (attendue_)
    texte = u"Recherche en cours…"_s;
  else if (EstResultat() && nombre == 0)
    texte = u"Aucun résultat"_s;
  else if (EstResultat() && nombre == static_cast<qsizetype>(RechercheTotale::kLimite))
    texte = u"Les %1 premiers résultats"_s.arg(nombre);
  ui_->LblNomBE->setText(texte);
}

void ListeVelmiras::MontrerChoix(bool montre) {
  ui_->CmdExcel->setVisible(montre);
  ui_->CmdAnnExp->setVisible(montre);
  ui_->TV->MontrerCoches(montre);
}

void ListeVelmiras::ChangerTaillePolice(int points) {
  QFont font = this->font();
  font.setPointSize(points);
  ui_->TV->setFont(font);
  ui_->CboCat->setFont(font);
  ui_->LstAnniversaires->setFont(font);
}
