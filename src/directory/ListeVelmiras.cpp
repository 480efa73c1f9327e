#include "directory/ListeVelmiras.h"

#include "directory/FrmClavier.h"
#include "platform/Saisie.h"
#include "ui/Brancheur.h"
#include "ui/Bulle.h"
#include "ui/Debrancher.h"
#include "ui/Icones.h"
#include "ui/Sablier.h"
#include "ui_ListeVelmiras.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

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
  MontrerChoix(false);
}

ListeVelmiras::~ListeVelmiras() {
  DebrancherEnfants(*this);
}

void ListeVelmiras::Relier(Session &session, std::function<bool()> avant) {
  session_ = &session;
  avant_ = std::move(avant);
  filtre_.utilisateur = session.plateforme.utilisateur;
  Brancher();
  constexpr int kLargeurBulle = 80;
  Horloge &horloge = session.plateforme.horloge;
  PoserBulle(ui_->CmdCherche, horloge, {u"Recherche rapide"_s, kBulleBrune, kLargeurBulle});
  PoserBulle(ui_->CmdFavoris, horloge, {u"Ajouter aux favoris"_s, kBulleBrune, kLargeurBulle});
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
  const auto noeuds = SousSablier([&] { return Lister(Entiere()); });
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

std::optional<std::vector<NoeudListe>> ListeVelmiras::Lister(const FiltreListe &filtre) const {
  if (!session_->base.Ouverte()) return std::nullopt;
  const TableAdresse table(session_->base);
  auto noeuds = ListerVelmiras(table, filtre);
  if (noeuds.empty() && table.EstVide()) return std::nullopt;
  return noeuds;
}

bool ListeVelmiras::Charger(const FiltreListe &filtre) {
  const auto accord = qScopeGuard([this] { AccorderCombo(); });
  auto noeuds = SousSablier([&] { return Lister(filtre); });
  if (!avant_()) return false;
  filtre_ = filtre;
  if (noeuds)
    ui_->TV->Remplir(Titre(), std::move(*noeuds));
  else
    ui_->TV->Modele().Vider();
  MettreAJourCompte();
  return true;
}

void ListeVelmiras::Afficher(const QString &categorie, const QString &lettre) {
  const bool finie = EstResultat() || categorie != ToutesCategories();
  FiltreListe filtre = Entiere();
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

bool ListeVelmiras::Restreindre(const QString &contenu) {
  if (filtre_.contenu == contenu) return true;
  FiltreListe filtre = filtre_;
  filtre.contenu = contenu;
  return Charger(filtre);
}

bool ListeVelmiras::Actualiser(Cle retenue) {
  const QStringList categories = CategoriesAuChoix(session_->base);
  FiltreListe filtre = filtre_;
  if (!EstProposee(categories, filtre.categorie)) filtre.categorie = ToutesCategories();
  auto noeuds = Lister(filtre).value_or(std::vector<NoeudListe>());
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
  if (modele.NombreEnfants() != avant) MettreAJourCompte();
  return !parti;
}

void ListeVelmiras::Chercher(const QString &saisie) {
  Boites &boites = session_->plateforme.boites;
  if (!RechercheEnCours && !saisie.isEmpty() && Categorie() != ToutesCategories()) {
    RechercheEnCours = true;
    if (boites.Question(Boites::Titre(),
                        u"Voulez-vous faire une recherche dans tous vos velmiras,\n"
                        "et non pas seulement dans la catégorie affichée ?"_s) ==
        Boites::Reponse::Oui) {
      FiltreListe tous = Entiere();
      tous.categorie = ToutesCategories();
      Charger(tous);
    }
  }
  RechercheEnCours = !saisie.isEmpty();
  ui_->TxtRR->setFocus();
  if (!saisie.isEmpty())
    Trouver(saisie);
  else if (ui_->TV->Modele().CochesMontrees() || Restreindre({}))
    CliquerRacine();
}

void ListeVelmiras::Trouver(const QString &saisie) {
  ModeleListe &modele = ui_->TV->Modele();
  // Who is ticked must stay in sight.
  const bool fixe = modele.CochesMontrees() || (!EstResultat() && modele.NombreEnfants() == 0);
  QModelIndex noeud = EstResultat() && !fixe ? QModelIndex() : modele.Commencant(saisie);
  if (!noeud.isValid() && !fixe) {
    QString debut = saisie;
    while (debut.endsWith(u' ')) debut.chop(1);  // a word of which nothing is typed yet
    const bool commence = Commence(debut);
    if (!Restreindre(commence ? QString() : SansBlancs(debut))) return;
    noeud = commence ? modele.Commencant(saisie) : modele.index(0, 0, modele.Racine());
  }
  if (noeud.isValid()) ui_->TV->SelectionnerEtCliquer(noeud);
}

bool ListeVelmiras::Commence(const QString &debut) const {
  if (!EstResultat()) return ui_->TV->Modele().Commencant(debut).isValid();
  const auto noeuds = Lister(Entiere());
  return noeuds && Commencant(*noeuds, debut) != noeuds->end();
}

FiltreListe ListeVelmiras::Entiere() const {
  FiltreListe filtre = filtre_;
  filtre.contenu.clear();
  return filtre;
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
  QuitterNoeud(noeud.index);
  modele.Remplacer(noeud);
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

void ListeVelmiras::CliquerRacine() {
  if (const QModelIndex racine = ui_->TV->Modele().Racine(); racine.isValid())
    ui_->TV->SelectionnerEtCliquer(racine);
}

void ListeVelmiras::MettreAJourCompte() {
  const auto nombre = ui_->TV->Modele().NombreEnfants();
  ui_->LblNomBE->setText(nombre == 0 && EstResultat() ? u"Aucun résultat"_s : TexteCompte(nombre));
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
}
