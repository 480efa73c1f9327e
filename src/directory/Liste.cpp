#include "directory/Liste.h"

#include "calendar/SansAccents.h"
#include "directory/Categories.h"
#include "directory/Protection.h"
#include "platform/Saisie.h"
#include "storage/Noms.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The letter under which a name is looked for.
QString Initiale(const QString &nom) {
  const QString initiale =
      SansAccents(nom.left(1)).normalized(QString::NormalizationForm_D).left(1).toUpper();
  return initiale == u"Œ"_s ? u"O"_s : initiale == u"Æ"_s ? u"A"_s : initiale;
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
    if (!EstVisible(entree.DataProt, filtre.utilisateur) || !EstDeLaCategorie(entree, filtre))
      return;
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

bool EstDeLaCategorie(const EntreeListe &entree, const FiltreListe &filtre) {
  if (filtre.categorie == ToutesCategories()) return true;
  if (filtre.categorie == RechercheRapide())
    return Initiale(entree.NomVelmira) == filtre.lettre.toUpper();
  return EstDansCategorie(entree.Categories, filtre.categorie);
}

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

bool CommencePar(const QString &nom, const QString &debut) {
  QStringView tete = QStringView(nom).left(debut.size());
  while (tete.endsWith(u' ')) tete.chop(1);
  return tete.compare(debut, Qt::CaseInsensitive) == 0;
}

std::vector<NoeudListe>::const_iterator Commencant(const std::vector<NoeudListe> &noeuds,
                                                   const QString &debut) {
  return std::ranges::find_if(
      noeuds, [&](const NoeudListe &noeud) { return CommencePar(noeud.texte, debut); });
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

QList<Cle> FichesNommees(const TableAdresse &table, const QString &nom,
                         const QString &utilisateur) {
  QList<Cle> fiches;
  const QString cherche = EnCapitales(SansBlancs(nom));
  table.PourChaque([&](EntreeListe &&entree) {
    if (EstVisible(entree.DataProt, utilisateur) &&
        EnCapitales(SansBlancs(entree.NomVelmira)) == cherche)
      fiches.append(entree.Index);
  });
  return fiches;
}

QList<Cle> FichesDemandees(const TableAdresse &table, const QString &cible,
                           const QString &utilisateur) {
  bool nombre = false;
  const Cle cle = cible.toLongLong(&nombre);
  if (nombre)
    if (const auto fiche = table.Lire(cle); fiche && EstVisible(fiche->DataProt, utilisateur))
      return {cle};
  return FichesNommees(table, cible, utilisateur);
}
