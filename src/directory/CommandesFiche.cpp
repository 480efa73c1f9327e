#include "directory/CommandesFiche.h"

#include "directory/Categories.h"

using namespace Qt::StringLiterals;

namespace {

QString Texte(const QModelIndex &noeud) {
  return noeud.data().toString();
}
Cle Index(const QModelIndex &noeud) {
  return noeud.data(Qt::UserRole).toLongLong();
}

}  // namespace

QModelIndex CommandesFiche::Selection() const {
  const QModelIndex noeud = liste_.Arbre().Selection();
  if (!noeud.isValid())
    session_.plateforme.boites.Message(
        Boites::Genre::Information, u"Erreur de Saisie"_s,
        u"Vous devez sélectionner un correspondant dans la liste !"_s);
  return noeud;
}

void CommandesFiche::Supprimer(const std::function<void()> &avant) {
  Boites &boites = session_.plateforme.boites;
  ArbreVelmiras &arbre = liste_.Arbre();
  const QModelIndex racine = arbre.Modele().Racine();
  if (!racine.isValid()) {
    boites.Message(Boites::Genre::Attention, u"Répertoire Vide"_s,
                   u"Pas de correspondant à supprimer !"_s);
    return;
  }
  if (arbre.Selection() == racine) {
    boites.Information(u"Cet élément ne peut être supprimé !"_s);
    return;
  }
  const QModelIndex noeud = Selection();
  if (!noeud.isValid()) return;
  if (boites.Question(u"Confirmation de suppression"_s,
                      u"Supprimer le correspondant  "_s + Texte(noeud).toUpper() + u" ?"_s,
                      Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;

  const bool existait = TableAdresse(session_.base).Supprimer(Index(noeud));
  avant();
  liste_.Retirer(noeud);
  if (!existait)
    boites.Information(
        u"Ce correspondant n'existe plus : un autre utilisateur l'a supprimé entre-temps."_s);
  liste_.RemplirCategories();
  if (arbre.Modele().NombreEnfants() > 0) {
    arbre.SelectionnerEtCliquer(arbre.Modele().Racine());
    arbre.setFocus();
  } else {
    QuitterCategorieVide();
  }
  liste_.MettreAJourCompte();
}

void CommandesFiche::QuitterCategorieVide() {
  session_.plateforme.boites.Message(Boites::Genre::Attention, u"Répertoire Vide"_s,
                                     u"Cette catégorie ne contient plus de Velmira !"_s);
  liste_.AfficherCategorie(ToutesCategories());
}

void CommandesFiche::AjouterAuxFavoris() {
  Boites &boites = session_.plateforme.boites;
  const QModelIndex racine = liste_.Arbre().Modele().Racine();
  if (!racine.isValid()) {
    boites.Information(u"Commande inopérable, car la liste des velmiras est vide."_s);
    return;
  }
  if (Texte(racine) == Favoris().toUpper()) {
    boites.Information(u"Vous êtes déjà dans la liste des favoris.\nLa commande est inopérable."_s);
    return;
  }
  const QModelIndex noeud = Selection();
  if (!noeud.isValid()) return;
  if (noeud == racine) {
    boites.Information(u"Cet élément ne peut être ajouté aux favoris !"_s);
    return;
  }
  const QString nom = Texte(noeud);
  if (boites.Question(Boites::Titre(), u"Ajouter "_s + nom + u" à vos favoris ?"_s) !=
      Boites::Reponse::Oui)
    return;
  TableAdresse table(session_.base);
  const auto fiche = table.Lire(Index(noeud));
  if (fiche && fiche->Categories.contains(Favoris())) {
    boites.Attention(nom + u" est déjà enregistré comme favori !"_s);
    return;
  }
  const QString debut = fiche && !fiche->Categories.isEmpty() ? fiche->Categories : u"*"_s;
  table.EcrireCategories(Index(noeud), debut + Favoris() + u'*');
  boites.Information(nom + u" a été ajouté à vos favoris."_s);
}
