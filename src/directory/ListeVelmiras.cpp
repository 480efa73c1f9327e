#include "directory/ListeVelmiras.h"

#include "directory/Categories.h"

#include <QComboBox>
#include <QLabel>

ListeVelmiras::ListeVelmiras(Session &session, const Controles &controles,
                             std::function<void()> avant)
    : session_(session), controles_(controles), avant_(std::move(avant)) {}

QString ListeVelmiras::Categorie() const {
  return controles_.categories->currentText();
}

void ListeVelmiras::RemplirCategories() {
  const bool rapide = CategorieCourante == RechercheRapide();
  QComboBox *combo = controles_.categories;
  combo->clear();
  combo->addItems(ListerCategories(session_.base, rapide));
  combo->setCurrentIndex(
      combo->findText(CategorieCourante, Qt::MatchFixedString | Qt::MatchCaseSensitive));
}

void ListeVelmiras::Charger() {
  avant_();
  QComboBox *combo = controles_.categories;
  if (combo->currentIndex() < 0) return;
  if (combo->currentText() != RechercheRapide() && combo->itemText(0) == RechercheRapide())
    combo->removeItem(0);

  CategorieCourante = combo->currentText();
  Arbre().Modele().Vider();
  NombreNoeuds_ = 0;
  if (session_.base.Ouverte()) {
    const TableAdresse table(session_.base);
    auto noeuds =
        ListerVelmiras(table, {CategorieCourante, LettreRR, session_.plateforme.utilisateur});
    NombreNoeuds_ = static_cast<qsizetype>(noeuds.size());
    if (!noeuds.empty() || !table.EstVide())
      Arbre().Remplir(CategorieCourante.toUpper(), std::move(noeuds));
  }
  MettreAJourCompte();
  Arbre().setFocus();
}

void ListeVelmiras::AfficherCategorie(const QString &categorie) {
  controles_.categories->setCurrentText(categorie);
  Charger();
}

void ListeVelmiras::AfficherInitiale(const QString &lettre) {
  LettreRR = lettre;
  QComboBox *combo = controles_.categories;
  if (combo->itemText(0) != RechercheRapide()) combo->insertItem(0, RechercheRapide());
  combo->setCurrentIndex(0);
  Charger();
}

void ListeVelmiras::Inserer(const NoeudListe &noeud) {
  if (!Arbre().Modele().Racine().isValid()) Arbre().Remplir(Categorie().toUpper(), {});
  Arbre().Modele().Inserer(noeud);
  ++NombreNoeuds_;
}

void ListeVelmiras::Retirer(const QModelIndex &noeud) {
  Arbre().Modele().Retirer(noeud);
}

void ListeVelmiras::MettreAJourCompte() {
  controles_.compte->setText(TexteCompte(Arbre().Modele().NombreEnfants()));
}
