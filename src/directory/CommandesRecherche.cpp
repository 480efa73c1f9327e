#include "directory/CommandesRecherche.h"

#include "directory/Categories.h"
#include "directory/FrmClavier.h"
#include "ui/Garde.h"

#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

CommandesRecherche::CommandesRecherche(Boites &boites, ListeVelmiras &liste, QLineEdit *saisie,
                                       QToolButton *initiales)
    : boites_(boites), liste_(liste), TxtRR(saisie), CmdCherche(initiales) {
  connect(TxtRR, &QLineEdit::textEdited, this,
          Garde(boites_, [this](const QString &) { Chercher(); }));
  // Emptied by another category too, which ends the search.
  connect(TxtRR, &QLineEdit::textChanged, this, [this](const QString &texte) {
    if (texte.isEmpty()) RechercheEnCours = false;
  });
  connect(CmdCherche, &QToolButton::clicked, this,
          Garde(boites_, [this](bool) { ChoisirInitiale(); }));
}

void CommandesRecherche::Chercher() {
  const QString debut = TxtRR->text();
  if (!RechercheEnCours && !debut.isEmpty() && liste_.Categorie() != ToutesCategories()) {
    RechercheEnCours = true;
    if (boites_.Question(Boites::Titre(),
                         u"Voulez-vous faire une recherche dans tous vos velmiras,\n"
                         "et non pas seulement dans la catégorie affichée ?"_s) ==
        Boites::Reponse::Oui)
      liste_.AfficherCategorie(ToutesCategories());
  }
  RechercheEnCours = !debut.isEmpty();
  TxtRR->setFocus();

  ArbreVelmiras &arbre = liste_.Arbre();
  const ModeleListe &modele = arbre.Modele();
  if (debut.isEmpty()) {
    if (modele.Racine().isValid()) arbre.SelectionnerEtCliquer(modele.Racine());
    return;
  }
  if (liste_.NombreNoeuds() <= 1) return;
  if (const QModelIndex noeud = modele.Commencant(debut); noeud.isValid())
    arbre.SelectionnerEtCliquer(noeud);
}

void CommandesRecherche::ChoisirInitiale() {
  FrmClavier clavier(CmdCherche);
  if (clavier.exec() != QDialog::Accepted || clavier.Lettre() == u"AZ"_s) return;
  liste_.AfficherInitiale(clavier.Lettre());
}
