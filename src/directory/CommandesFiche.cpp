#include "directory/CommandesFiche.h"

#include "directory/Categories.h"
#include "directory/FrmNewMod.h"
#include "directory/Liste.h"

using namespace Qt::StringLiterals;

namespace {

// The key of a new record is handed on in one byte.
constexpr Cle kCleNouvelleMax = 255;

/// A record whose texts are empty, not null.
Correspondant FicheVide() {
  Correspondant fiche;
  fiche.Commentaires = fiche.AdresseImportee = u""_s;
  return fiche;
}

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

bool CommandesFiche::Saisir(FrmNewMod &editeur, Correspondant &fiche,
                            const std::function<void()> &ecrire) {
  while (editeur.exec() == QDialog::Accepted && !editeur.Saisie().NomSaisi.trimmed().isEmpty()) {
    editeur.Saisie().Reporter(fiche);
    if (Signaler(session_.plateforme.boites, ecrire)) return true;
  }
  return false;
}

void CommandesFiche::Nouveau(const Fenetre &fenetre) {
  FrmNewMod editeur(session_, u"  Nouveau Velmira"_s,
                    {fenetre.protegesMasques, [this] { liste_.RemplirCategories(); }},
                    fenetre.parent);
  Correspondant fiche = FicheVide();
  const bool ecrite = Saisir(editeur, fiche, [&] {
    fiche.AlerteActive = editeur.Saisie().AjoutAlerte;
    fiche.Index = TableAdresse(session_.base).Ajouter(fiche, fiche.AlerteActive);
  });
  if (!ecrite) {
    fenetre.montrer();
    liste_.MettreAJourCompte();
    return;
  }
  liste_.RemplirCategories();
  liste_.AfficherCategorie(ToutesCategories());
  if (const QModelIndex noeud = liste_.Arbre().Modele().Enfant(fiche.Index); noeud.isValid())
    liste_.Arbre().SelectionnerEtCliquer(noeud);
  if (fiche.Index > kCleNouvelleMax)
    session_.plateforme.boites.Erreur(
        u"Dépassement de capacité : la clé %1 dépasse %2.\nLe correspondant a bien été enregistré."_s
            .arg(fiche.Index)
            .arg(kCleNouvelleMax));
}

void CommandesFiche::Modifier(const Fenetre &fenetre) {
  Boites &boites = session_.plateforme.boites;
  ArbreVelmiras &arbre = liste_.Arbre();
  const QModelIndex racine = arbre.Modele().Racine();
  if (!racine.isValid()) {
    boites.Information(u"Aucun velmira à modifier !"_s);
    return;
  }
  const QModelIndex choisi = Selection();
  if (!choisi.isValid()) return;
  if (choisi == racine) {
    boites.Information(u"Cet élément n'est pas modifiable !"_s);
    return;
  }
  auto fiche = TableAdresse(session_.base).Lire(Index(choisi));
  if (!fiche) {
    fenetre.montrer();  // tells that the record has gone
    return;
  }
  FrmNewMod editeur(session_, u"  Modifier Velmira"_s,
                    {fenetre.protegesMasques, [this] { liste_.RemplirCategories(); }},
                    fenetre.parent);
  editeur.Montrer(*fiche);
  const bool ecrite = Saisir(editeur, *fiche, [&] {
    TableAdresse(session_.base).Modifier(*fiche, editeur.Saisie().AjoutAlerte);
  });
  if (!ecrite) return;
  liste_.Retirer(arbre.Modele().Enfant(fiche->Index));
  const QModelIndex noeud = arbre.Modele().Inserer({NomListe(fiche->NomVelmira), fiche->Index});
  liste_.RemplirCategories();
  arbre.SelectionnerEtCliquer(noeud);
  arbre.setFocus();
}

void CommandesFiche::Supprimer(const std::function<void()> &partie) {
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
  partie();
  liste_.Retirer(noeud);
  if (!existait) boites.Information(TexteDisparu());
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
