#include "directory/Liste.h"

#include "directory/Categories.h"
#include "directory/Protection.h"
#include "platform/Saisie.h"

#include <QCollator>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool Passe(const EntreeListe &entree, const FiltreListe &filtre) {
  if (filtre.categorie == ToutesCategories()) return true;
  if (filtre.categorie == RechercheRapide())
    return entree.NomVelmira.left(1).toUpper() == filtre.lettre.toUpper();
  return EstDansCategorie(entree.Categories, filtre.categorie);
}

QCollator OrdreDesNoms() {
  QCollator ordre(QLocale(QLocale::French, QLocale::France));
  ordre.setCaseSensitivity(Qt::CaseInsensitive);
  return ordre;
}

/// `parcours` walks the records, `nommer` makes a shown name of a record's name.
template <typename Parcours, typename Nommer>
std::vector<NoeudListe> Lister(const Parcours &parcours, const FiltreListe &filtre,
                               const Nommer &nommer) {
  const QCollator ordre = OrdreDesNoms();

  struct Triable {
    QCollatorSortKey cle;
    NoeudListe noeud;
  };
  std::vector<Triable> triables;
  parcours([&](EntreeListe &&entree) {
    if (!EstVisible(entree.DataProt, filtre.utilisateur) || !Passe(entree, filtre)) return;
    triables.push_back(
        {ordre.sortKey(NomListe(entree.NomVelmira)), {nommer(entree.NomVelmira), entree.Index}});
  });
  std::stable_sort(triables.begin(), triables.end(),
                   [](const Triable &a, const Triable &b) { return a.cle < b.cle; });

  std::vector<NoeudListe> noeuds;
  noeuds.reserve(triables.size());
  for (Triable &triable : triables) noeuds.push_back(std::move(triable.noeud));
  return noeuds;
}

}  // namespace

QString NomListe(const QString &nom) {
  constexpr qsizetype kLargeur = 25;
  return SansBlancs(nom.left(kLargeur));
}

std::vector<NoeudListe>::const_iterator PlaceDansListe(const std::vector<NoeudListe> &noeuds,
                                                       const QString &nom) {
  const QCollator ordre = OrdreDesNoms();
  return std::upper_bound(
      noeuds.begin(), noeuds.end(), nom,
      [&](const QString &a, const NoeudListe &b) { return ordre.compare(a, b.texte) < 0; });
}

std::vector<NoeudListe> ListerVelmiras(const TableAdresse &table, const FiltreListe &filtre) {
  return Lister([&](const auto &visiteur) { table.PourChaque(visiteur); }, filtre, NomListe);
}

std::vector<NoeudListe> ListerAdresses(const TableAdresse &table, const FiltreListe &filtre) {
  return Lister([&](const auto &visiteur) { table.PourChaqueAdresse(visiteur); }, filtre,
                [](const QString &nom) { return nom; });
}

QString TexteCompte(qsizetype enregistrements) {
  if (enregistrements <= 0) return u"Pas d'enregistrement"_s;
  return QString::number(enregistrements) +
         (enregistrements == 1 ? u"  enregistrement"_s : u"  enregistrements "_s);
}
