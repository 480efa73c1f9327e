#include "directory/ListeVelmiras.h"

#include "directory/Categories.h"
#include "directory/FrmClavier.h"
#include "ui/Brancheur.h"
#include "ui/Bulle.h"
#include "ui/Debrancher.h"
#include "ui/Icones.h"
#include "ui_ListeVelmiras.h"

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
  brancher(ui_->CboCat, &QComboBox::activated, &ListeVelmiras::Charger);
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
    if (noeud != ui_->TV->Modele().Racine()) emit DoubleCliquee();
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
  RemplirCategories();
  ui_->CboCat->setCurrentText(surFavoris ? Favoris() : ToutesCategories());
  Charger();
  if (const auto nombre = ui_->TV->Modele().NombreEnfants(); nombre > 0)
    ui_->LblNomBE->setText(QString::number(nombre) + u" enregistrement(s) "_s);
}

void ListeVelmiras::RemplirCategories() {
  const bool rapide = CategorieCourante == RechercheRapide();
  QComboBox *combo = ui_->CboCat;
  combo->clear();
  combo->addItems(ListerCategories(session_->base, rapide));
  combo->setCurrentIndex(
      combo->findText(CategorieCourante, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

void ListeVelmiras::Charger() {
  if (!avant_()) {
    ui_->CboCat->setCurrentText(CategorieCourante);
    return;
  }
  if (Categorie() != ToutesCategories()) ui_->TxtRR->clear();
  QComboBox *combo = ui_->CboCat;
  if (combo->currentIndex() < 0) return;
  if (combo->currentText() != RechercheRapide() && combo->itemText(0) == RechercheRapide())
    combo->removeItem(0);

  CategorieCourante = combo->currentText();
  ui_->TV->Modele().Vider();
  NombreNoeuds = 0;
  if (session_->base.Ouverte()) {
    const TableAdresse table(session_->base);
    auto noeuds =
        ListerVelmiras(table, {CategorieCourante, LettreRR, session_->plateforme.utilisateur});
    NombreNoeuds = static_cast<qsizetype>(noeuds.size());
    if (!noeuds.empty() || !table.EstVide())
      ui_->TV->Remplir(CategorieCourante.toUpper(), std::move(noeuds));
  }
  MettreAJourCompte();
  ui_->TV->setFocus();
}

void ListeVelmiras::AfficherCategorie(const QString &categorie) {
  ui_->CboCat->setCurrentText(categorie);
  Charger();
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
  if (!clavier.Lettre() || !avant_()) return;
  LettreRR = *clavier.Lettre();
  QComboBox *combo = ui_->CboCat;
  if (combo->itemText(0) != RechercheRapide()) combo->insertItem(0, RechercheRapide());
  combo->setCurrentIndex(0);
  Charger();
}

void ListeVelmiras::Inserer(const NoeudListe &noeud) {
  ModeleListe &modele = ui_->TV->Modele();
  if (!modele.Racine().isValid()) ui_->TV->Remplir(Categorie().toUpper(), {});
  modele.Inserer(noeud);
  ++NombreNoeuds;
}

void ListeVelmiras::Retirer(const QModelIndex &noeud) {
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
