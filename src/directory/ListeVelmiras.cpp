#include "directory/ListeVelmiras.h"

#include "directory/Categories.h"
#include "directory/FrmClavier.h"
#include "ui/Brancheur.h"
#include "ui/Bulle.h"
#include "ui/Debrancher.h"
#include "ui/Icones.h"
#include "ui/Sablier.h"
#include "ui_ListeVelmiras.h"

#include <QScopeGuard>

#include <algorithm>

using namespace Qt::StringLiterals;

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
  Brancher();
  constexpr int kLargeurBulle = 80;
  Horloge &horloge = session.plateforme.horloge;
  PoserBulle(ui_->CmdCherche, horloge, {u"Recherche rapide"_s, kBulleBrune, kLargeurBulle});
  PoserBulle(ui_->CmdFavoris, horloge, {u"Ajouter aux favoris"_s, kBulleBrune, kLargeurBulle});
}

void ListeVelmiras::Brancher() {
  const Brancheur brancher(session_->plateforme.boites, this);
  brancher(ui_->CboCat, &QComboBox::activated, [this] { Charger(Categorie(), LettreRR); });
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
  CategorieCourante = surFavoris ? Favoris() : ToutesCategories();
  RemplirCategories();
  Charger(CategorieCourante, LettreRR);
  if (const auto nombre = ui_->TV->Modele().NombreEnfants(); nombre > 0)
    ui_->LblNomBE->setText(QString::number(nombre) + u" enregistrement(s) "_s);
}

void ListeVelmiras::RemplirCategories() {
  PoserCategories(ListerCategories(session_->base, CategorieCourante == RechercheRapide()));
}

void ListeVelmiras::PoserCategories(const QStringList &categories) {
  ui_->CboCat->clear();
  ui_->CboCat->addItems(categories);
  AccorderCombo();
}

void ListeVelmiras::AccorderCombo() {
  QComboBox *combo = ui_->CboCat;
  if (CategorieCourante != RechercheRapide() && combo->itemText(0) == RechercheRapide())
    combo->removeItem(0);
  combo->setCurrentIndex(
      combo->findText(CategorieCourante, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

std::optional<std::vector<NoeudListe>> ListeVelmiras::Lister(const QString &categorie,
                                                             const QString &lettre) const {
  if (!session_->base.Ouverte()) return std::nullopt;
  const TableAdresse table(session_->base);
  auto noeuds = ListerVelmiras(table, {categorie, lettre, session_->plateforme.utilisateur});
  if (noeuds.empty() && table.EstVide()) return std::nullopt;
  return noeuds;
}

void ListeVelmiras::Charger(const QString &categorie, const QString &lettre) {
  const auto accord = qScopeGuard([this] { AccorderCombo(); });
  auto sablier = std::make_optional<Sablier>();
  auto noeuds = Lister(categorie, lettre);
  sablier.reset();
  if (!avant_()) return;
  CategorieCourante = categorie;
  LettreRR = lettre;
  if (categorie != ToutesCategories()) ui_->TxtRR->clear();
  NombreNoeuds = noeuds ? static_cast<qsizetype>(noeuds->size()) : 0;
  if (noeuds)
    ui_->TV->Remplir(categorie.toUpper(), std::move(*noeuds));
  else
    ui_->TV->Modele().Vider();
  MettreAJourCompte();
  ui_->TV->setFocus();
}

bool ListeVelmiras::Actualiser(Cle retenue) {
  const QStringList categories =
      ListerCategories(session_->base, CategorieCourante == RechercheRapide());
  const QString categorie =
      categories.contains(CategorieCourante) ? CategorieCourante : ToutesCategories();
  auto noeuds = Lister(categorie, LettreRR).value_or(std::vector<NoeudListe>());
  ModeleListe &modele = ui_->TV->Modele();
  const QModelIndex noeud = modele.Enfant(retenue);
  const bool parti =
      noeud.isValid() && std::ranges::find(noeuds, retenue, &NoeudListe::index) == noeuds.end();
  if (parti) noeuds.insert(PlaceDansListe(noeuds, Texte(noeud)), {Texte(noeud), retenue});

  CategorieCourante = categorie;
  PoserCategories(categories);
  if (noeuds.empty() && !modele.Racine().isValid()) return true;
  const auto avant = modele.NombreEnfants();
  NombreNoeuds = static_cast<qsizetype>(noeuds.size());
  ui_->TV->Accorder(categorie.toUpper(), std::move(noeuds));
  if (NombreNoeuds != avant) MettreAJourCompte();
  return !parti;
}

void ListeVelmiras::AfficherCategorie(const QString &categorie) {
  Charger(categorie, LettreRR);
}

void ListeVelmiras::Chercher(const QString &debut) {
  Boites &boites = session_->plateforme.boites;
  if (!RechercheEnCours && !debut.isEmpty() && Categorie() != ToutesCategories()) {
    RechercheEnCours = true;
    if (boites.Question(Boites::Titre(),
                        u"Voulez-vous faire une recherche dans tous vos velmiras,\n"
                        "et non pas seulement dans la catégorie affichée ?"_s) ==
        Boites::Reponse::Oui)
      AfficherCategorie(ToutesCategories());
  }
  RechercheEnCours = !debut.isEmpty();
  ui_->TxtRR->setFocus();

  if (debut.isEmpty()) {
    CliquerRacine();
    return;
  }
  if (NombreNoeuds <= 1) return;
  if (const QModelIndex noeud = ui_->TV->Modele().Commencant(debut); noeud.isValid())
    ui_->TV->SelectionnerEtCliquer(noeud);
}

void ListeVelmiras::ChoisirInitiale() {
  FrmClavier clavier(ui_->CmdCherche);
  clavier.exec();
  if (!clavier.Lettre()) return;
  QComboBox *combo = ui_->CboCat;
  if (combo->itemText(0) != RechercheRapide()) combo->insertItem(0, RechercheRapide());
  Charger(RechercheRapide(), *clavier.Lettre());
}

void ListeVelmiras::Inserer(const NoeudListe &noeud) {
  ModeleListe &modele = ui_->TV->Modele();
  if (!modele.Racine().isValid()) ui_->TV->Remplir(Categorie().toUpper(), {});
  modele.Inserer(noeud);
  ++NombreNoeuds;
}

void ListeVelmiras::Retirer(const QModelIndex &noeud) {
  // The view would go to a neighbour, whom nobody has asked for.
  if (noeud == ui_->TV->Selection()) ui_->TV->Selectionner(0);
  ui_->TV->Modele().Retirer(noeud);
}

void ListeVelmiras::CliquerRacine() {
  if (const QModelIndex racine = ui_->TV->Modele().Racine(); racine.isValid())
    ui_->TV->SelectionnerEtCliquer(racine);
}

void ListeVelmiras::MettreAJourCompte() {
  ui_->LblNomBE->setText(TexteCompte(ui_->TV->Modele().NombreEnfants()));
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
