#include "directory/CommandesFiche.h"

#include "directory/Categories.h"
#include "directory/FrmNewMod.h"
#include "directory/LibellesFiche.h"
#include "directory/Liste.h"
#include "storage/Historique.h"
#include "storage/Tables.h"
#include "ui/Accord.h"
#include "ui/Sablier.h"

using namespace Qt::StringLiterals;

namespace {

// The key of a new record is handed on in one byte.
constexpr Cle kCleNouvelleMax = 255;

/// A new row holds no nulls: a null mark of protection would hide it from everybody.
Correspondant SansNul(Correspondant fiche) {
  const auto remplir = [&]<typename Champ>(Champ Correspondant::*champ) {
    if constexpr (std::is_same_v<Champ, QString>)
      if ((fiche.*champ).isNull()) fiche.*champ = u""_s;
  };
  std::apply([&](const auto &...colonne) { (remplir(colonne.champ), ...); },
             Table<Correspondant>::colonnes);
  return fiche;
}

/// Towns are offered from then on.
void RetenirVille(Base &base, const Correspondant &fiche) {
  if (fiche.Ville.isEmpty()) return;
  SousSablier([&] { TableVille(base).Enregistrer(fiche.Ville, fiche.CodePostal); });
}

}  // namespace

QModelIndex CommandesFiche::NoeudChoisi() const {
  const QModelIndex noeud = liste_.Arbre().Selection();
  if (!noeud.isValid())
    session_.plateforme.boites.Message(
        Boites::Genre::Information, u"Erreur de Saisie"_s,
        u"Vous devez sélectionner un correspondant dans la liste !"_s);
  return noeud;
}

Cle CommandesFiche::Selection() const {
  return Index(liste_.Arbre().Selection());
}

void CommandesFiche::Selectionner(Cle index) {
  if (const QModelIndex noeud = liste_.Arbre().Modele().Enfant(index); noeud.isValid())
    liste_.Arbre().SelectionnerEtCliquer(noeud);
}

void CommandesFiche::AfficherTous() {
  liste_.AfficherCategorie(ToutesCategories());
  liste_.RemplirCategories();
}

FrmNewMod::Contexte CommandesFiche::Contexte() const {
  return {fenetre_.protegesMasques(),
          [this](const RegleCategories &regle) { liste_.SuivreCategories(regle); }};
}

bool CommandesFiche::Saisir(FrmNewMod &editeur, const QString &genre,
                            const std::function<bool(const FicheSaisie &)> &ecrire) {
  bool finie = false, ecrite = false;
  while (!finie && editeur.exec() == QDialog::Accepted)
    Signaler(session_.plateforme.boites, [&] {
      const FicheSaisie &saisie = editeur.Saisie();
      Acte acte(session_.base, genre + u" de « %1 »"_s.arg(saisie.fiche.NomVelmira));
      RetenirVille(session_.base, saisie.fiche);
      ecrite = saisie.acceptee && ecrire(saisie);
      finie = ecrite || !saisie.acceptee;
    });
  return ecrite;
}

std::optional<Correspondant> CommandesFiche::SaisirNouveau(QWidget *parent, const Ajout &ajout) {
  FrmNewMod editeur(session_, u"  Nouveau Velmira"_s, Contexte(), parent);
  Correspondant depart = SansNul(ajout.depart);
  depart.AlerteActive = ajout.alerte;  // shown ticked, and not to be unticked
  editeur.Montrer(depart);
  if (ajout.imprimer) editeur.ProposerImpression(ajout.imprimer);
  Correspondant ajoutee;
  const bool ecrite = Saisir(editeur, u"ajout"_s, [&](const FicheSaisie &saisie) {
    ajoutee = saisie.fiche;
    ajoutee.AlerteActive = ajout.alerte || saisie.AjoutAlerte;
    ajoutee.Index = SousSablier(
        [&] { return TableAdresse(session_.base).Ajouter(ajoutee, ajoutee.AlerteActive); });
    return true;
  });
  return ecrite ? std::optional(ajoutee) : std::nullopt;
}

void CommandesFiche::Nouveau() {
  const auto fiche = SaisirNouveau(fenetre_.parent, {});
  if (!fiche) {
    liste_.Arbre().CliquerSelection();
    liste_.MettreAJourCompte();
    return;
  }
  AfficherTous();
  Selectionner(fiche->Index);
  fenetre_.fait.Dire(u"Fiche enregistrée : "_s + fiche->NomVelmira);
  if (fiche->Index > kCleNouvelleMax)
    session_.plateforme.boites.Erreur(
        u"Dépassement de capacité : la clé %1 dépasse %2.\nLe correspondant a bien été enregistré."_s
            .arg(fiche->Index)
            .arg(kCleNouvelleMax));
}

std::optional<Correspondant> CommandesFiche::Ajouter(QWidget *parent, const Ajout &ajout) {
  auto fiche = SaisirNouveau(parent, ajout);
  if (!fiche) return fiche;
  liste_.Inserer({NomListe(fiche->NomVelmira), fiche->Index});
  liste_.RemplirCategories();
  liste_.MettreAJourCompte();
  return fiche;
}

void CommandesFiche::ModifierSelection() {
  Boites &boites = session_.plateforme.boites;
  const QModelIndex racine = liste_.Arbre().Modele().Racine();
  if (!racine.isValid()) {
    boites.Information(u"Aucun velmira à modifier !"_s);
    return;
  }
  const QModelIndex choisi = NoeudChoisi();
  if (!choisi.isValid()) return;
  if (choisi == racine) {
    boites.Information(u"Cet élément n'est pas modifiable !"_s);
    return;
  }
  const Cle index = Index(choisi);
  const auto fiche = Corriger(fenetre_.parent, index);
  if (!fiche) return;
  if (liste_.EstVidee(fiche->Categories))
    QuitterCategorieVide();
  else
    liste_.RemplirCategories();
  Selectionner(index);
  fenetre_.fait.Dire(u"Fiche enregistrée : "_s + fiche->NomVelmira);
  liste_.Arbre().setFocus();
}

bool CommandesFiche::Modifier(QWidget *parent, Cle index) {
  if (!Corriger(parent, index)) return false;
  liste_.RemplirCategories();
  Selectionner(index);
  return true;
}

std::optional<Correspondant> CommandesFiche::Corriger(QWidget *parent, Cle index) {
  TableAdresse table(session_.base);
  const auto ancienne = table.Lire(index);
  if (!ancienne) {
    session_.plateforme.boites.Information(TexteDisparu());
    if (Selection() == index) fenetre_.partie();
    return std::nullopt;
  }
  FrmNewMod editeur(session_, u"  Modifier Velmira"_s, Contexte(), parent);
  editeur.Montrer(*ancienne);
  const bool ecrite = Saisir(editeur, u"modification"_s, [&](const FicheSaisie &saisie) {
    return EcrireEnAccord(
        session_.plateforme.boites, saisie.montree, saisie.fiche, LibellesFiche(),
        [&](const Correspondant &montree, const Correspondant &fiche) {
          return SousSablier([&] { return table.Modifier(montree, fiche, saisie.AjoutAlerte); });
        });
  });
  if (!ecrite) return std::nullopt;
  // Read again: another user may have had a part in it.
  auto fiche = table.Lire(index);
  if (fiche) liste_.Remplacer({NomListe(fiche->NomVelmira), index});
  return fiche;
}

void CommandesFiche::Supprimer(Cle index) {
  Oter(index);
  liste_.RemplirCategories();
}

void CommandesFiche::Oter(Cle index) {
  const bool affiche = Selection() == index;
  TableAdresse table(session_.base);
  const bool existait = SousSablier([&] {
    const auto fiche = table.Lire(index);
    const Acte acte(session_.base,
                    u"suppression de « %1 »"_s.arg(fiche.value_or(Correspondant()).NomVelmira));
    return table.Supprimer(index);
  });
  if (affiche) fenetre_.partie();
  liste_.Retirer(index);
  if (!existait) session_.plateforme.boites.Information(TexteDisparu());
  liste_.MettreAJourCompte();
}

void CommandesFiche::SupprimerSelection() {
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
  const QModelIndex noeud = NoeudChoisi();
  if (!noeud.isValid()) return;
  if (boites.Question(u"Confirmation de suppression"_s,
                      u"Supprimer le correspondant  "_s + Texte(noeud).toUpper() + u" ?"_s,
                      Boites::Reponse::Non) != Boites::Reponse::Oui)
    return;

  const QString nom = Texte(noeud);
  Oter(Index(noeud));
  liste_.DireDepart(nom, fenetre_.annuler);
  if (arbre.Modele().NombreEnfants() == 0) liste_.QuitterResultat();
  if (arbre.Modele().NombreEnfants() > 0) {
    // Those who are still listed may have left the category before.
    liste_.RemplirCategories([this] { DireCategorieVide(); });
    liste_.CliquerRacine();
    arbre.setFocus();
  } else {
    QuitterCategorieVide();
  }
}

void CommandesFiche::DireCategorieVide() {
  session_.plateforme.boites.Message(Boites::Genre::Attention, u"Répertoire Vide"_s,
                                     u"Cette catégorie ne contient plus de Velmira !"_s);
}

void CommandesFiche::QuitterCategorieVide() {
  DireCategorieVide();
  AfficherTous();
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
  const QModelIndex noeud = NoeudChoisi();
  if (!noeud.isValid()) return;
  if (noeud == racine) {
    boites.Information(u"Cet élément ne peut être ajouté aux favoris !"_s);
    return;
  }
  const QString nom = Texte(noeud);
  if (boites.Question(Boites::Titre(), u"Ajouter "_s + nom + u" à vos favoris ?"_s) !=
      Boites::Reponse::Oui)
    return;
  const Cle index = Index(noeud);
  const bool ajoute = SousSablier([&] {
    const Acte acte(session_.base, u"ajout de « %1 » aux favoris"_s.arg(nom));
    return TableAdresse(session_.base).AjouterCategorie(index, Favoris());
  });
  if (ajoute) {
    Selectionner(index);  // the record tells its categories
    boites.Information(nom + u" a été ajouté à vos favoris."_s);
  } else {
    boites.Attention(nom + u" est déjà enregistré comme favori !"_s);
  }
}
