#include "directory/ChoixEtendue.h"

#include "directory/Categories.h"
#include "directory/ListeVelmiras.h"
#include "platform/Boites.h"

using namespace Qt::StringLiterals;

void ChoisirEtendue(Boites &boites, ListeVelmiras &liste, const QString &titre,
                    const QString &verbe) {
  if (liste.Categorie() == ToutesCategories()) return;
  const auto reponse =
      boites.Question(titre,
                      u" Voulez-vous %1 uniquement la catégorie affichée (répondre OUI)\n"
                      "ou la liste de tous vos velmiras (répondre NON) ?"_s.arg(verbe));
  if (reponse == Boites::Reponse::Non) liste.AfficherCategorie(ToutesCategories());
}
