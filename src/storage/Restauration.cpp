#include "storage/Restauration.h"

#include "storage/Conflits.h"
#include "storage/Enonces.h"
#include "storage/Moteur.h"
#include "storage/Noms.h"
#include "storage/Tables.h"

#include <QCollator>
#include <QHash>

#include <algorithm>
#include <optional>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

using C = Correspondant;
constexpr Table<C> kAdresse;

/// Verified as every base is that is opened.
void Attacher(Base &base, const QString &copie) {
  Base essai;
  essai.Ouvrir(copie);
  if (!essai.Ouverte())
    throw ErreurBase(
        u"La sauvegarde « %1 » n'existe plus.\nVos données sont intactes. Choisissez-en "
        "une autre."_s.arg(copie),
        GenreErreur::Inaccessible);
  Requete(base, u"ATTACH ? AS copie"_s).Lier(AdresseEnLecture(copie)).Executer();
}

std::size_t Empreinte(const C &fiche) {
  std::size_t empreinte = 1;
  std::apply(
      [&](const auto &...colonne) { ((empreinte = qHash(fiche.*colonne.champ, empreinte)), ...); },
      Table<C>::colonnes);
  return std::max<std::size_t>(empreinte, 1);
}

/// Without the sign that a mark is put out of force by.
QString Proprietaire(const QString &dataProt) {
  return dataProt.endsWith(u'$') ? dataProt.chopped(1) : dataProt;
}

ChoixColonnes<C> Changees(const C &avant, const C &maintenant) {
  auto changees = Differences(avant, maintenant);
  if (Proprietaire(avant.DataProt) == Proprietaire(maintenant.DataProt))
    changees.reset(Ordinal(&C::DataProt));
  return changees;
}

/// The condition that no row of `autre` has the key of one of `une`.
template <typename L>
QString Absente(Table<L> table, const QString &une, const QString &autre) {
  const QString cle = Entre(NomsColonnes<L>().front());
  return u" WHERE NOT EXISTS (SELECT 1 FROM %2.%3 a WHERE a.%4=%1.%3.%4)"_s.arg(une, autre,
                                                                                Nom(table), cle);
}

/// Those of `une` that `autre` has not got.
void Ajouter(Base &base, QList<FicheEcartee> &fiches, EcartFiche ecart, const QString &une,
             const QString &autre, const Visibilite &visible) {
  Requete requete(base, u"SELECT "_s + ListeColonnes(kAdresse) + u" FROM "_s + une + u'.' +
                            Nom(kAdresse) + Absente(kAdresse, une, autre));
  while (requete.Suivante()) {
    const C fiche = LigneCourante<C>(requete);
    if (visible(fiche.DataProt))
      fiches.append({fiche.Index,
                     ecart,
                     fiche.NomVelmira,
                     {},
                     ecart == EcartFiche::Ajoutee ? Empreinte(fiche) : 0});
  }
}

void AjouterModifiees(Base &base, QList<FicheEcartee> &fiches, const Visibilite &visible,
                      const std::stop_token &arret) {
  Requete requete(
      base,
      u"SELECT %1, %2 FROM copie.%3 c JOIN main.%3 m ON c.[Index]=m.[Index] WHERE (%1) IS NOT (%2)"_s
          .arg(ListeColonnes(kAdresse, 0, u"c."_s), ListeColonnes(kAdresse, 0, u"m."_s),
               Nom(kAdresse)));
  while (!arret.stop_requested() && requete.Suivante()) {
    const C avant = LigneCourante<C>(requete);
    const C maintenant = LigneCourante<C>(requete, int{kNombreColonnes<C>});
    const auto changees = Changees(avant, maintenant);
    if (changees.any() && visible(avant.DataProt) && visible(maintenant.DataProt))
      fiches.append(
          {avant.Index, EcartFiche::Modifiee, avant.NomVelmira, changees, Empreinte(maintenant)});
  }
}

void Ranger(QList<FicheEcartee> &fiches) {
  const QCollator langue = OrdreDesNoms();
  std::ranges::stable_sort(fiches, [&](const FicheEcartee &a, const FicheEcartee &b) {
    return a.ecart == b.ecart ? langue.compare(a.nom, b.nom) < 0 : a.ecart < b.ecart;
  });
}

template <typename L>
bool Differe(Base &base, Table<L> table) {
  const QString colonnes = ListeColonnes(table);
  const auto sauf = [&](const QString &une, const QString &autre) {
    return u"SELECT 1 FROM (SELECT %1 FROM %2.%4 EXCEPT SELECT %1 FROM %3.%4)"_s.arg(
        colonnes, une, autre, Nom(table));
  };
  return Requete(base, sauf(u"copie"_s, u"main"_s)).Suivante() ||
         Requete(base, sauf(u"main"_s, u"copie"_s)).Suivante();
}

std::optional<C> FicheDeLaCopie(Base &base, Cle index) {
  Requete requete(base, u"SELECT "_s + ListeColonnes(kAdresse) + u" FROM copie."_s + Nom(kAdresse) +
                            ParCle(kAdresse));
  requete.Lier(index);
  if (!requete.Suivante()) return std::nullopt;
  return LigneCourante<C>(requete);
}

/// False where it is not as it was compared.
bool Restaurer(Base &base, const FicheEcartee &fiche) {
  const auto maintenant = TableAdresse(base).Lire(fiche.index);
  if ((maintenant ? Empreinte(*maintenant) : 0) != fiche.empreinte) return false;
  const auto avant = FicheDeLaCopie(base, fiche.index);
  if (!avant) return false;
  if (maintenant) return ModifierLigne(base, *avant, fiche.colonnes);
  const QString colonnes = ListeColonnes(kAdresse);
  Requete(base, u"INSERT INTO main.%1 (%2) SELECT %2 FROM copie.%1"_s.arg(Nom(kAdresse), colonnes) +
                    ParCle(kAdresse))
      .Lier(fiche.index)
      .Executer();
  return true;
}

/// A condition on each deletion: what deletes all rows at once tells nobody which they were.
template <typename L>
void RestaurerTable(Base &base, Table<L> table) {
  const QString nom = Nom(table), cle = Entre(NomsColonnes<L>().front());
  const QString colonnes = ListeColonnes(table), autres = ListeColonnes(table, 1);
  Requete(base, u"DELETE FROM main.%1"_s.arg(nom) + Absente(table, u"main"_s, u"copie"_s))
      .Executer();
  Requete(base,
          u"UPDATE main.%1 SET (%2)=(SELECT %2 FROM copie.%1 c WHERE c.%3=main.%1.%3) WHERE "
          "EXISTS (SELECT 1 FROM copie.%1 c WHERE c.%3=main.%1.%3 AND (%4) IS NOT (%5))"_s.arg(
              nom, autres, cle, ListeColonnes(table, 1, u"c."_s),
              ListeColonnes(table, 1, u"main."_s + nom + u'.')))
      .Executer();
  Requete(base, u"INSERT INTO main.%1 (%2) SELECT %2 FROM copie.%1"_s.arg(nom, colonnes) +
                    Absente(table, u"copie"_s, u"main"_s))
      .Executer();
}

}  // namespace

qsizetype Comparaison::Nombre(EcartFiche ecart) const {
  return std::ranges::count(fiches, ecart, &FicheEcartee::ecart);
}

qsizetype CompterFiches(const QString &copie, const Visibilite &visible) {
  Base base;
  base.Ouvrir(copie);
  qsizetype nombre = 0;
  TableAdresse(base).PourChaque([&](const EntreeListe &entree) {
    if (visible(entree.DataProt)) ++nombre;
  });
  return nombre;
}

Comparaison ComparerSauvegarde(Base &base, const QString &copie, const Visibilite &visible,
                               const std::stop_token &arret) {
  Attacher(base, copie);
  Comparaison comparaison;
  QList<FicheEcartee> &fiches = comparaison.fiches;
  Ajouter(base, fiches, EcartFiche::Supprimee, u"copie"_s, u"main"_s, visible);
  AjouterModifiees(base, fiches, visible, arret);
  Ajouter(base, fiches, EcartFiche::Ajoutee, u"main"_s, u"copie"_s, visible);
  Ranger(fiches);
  PourChaqueTable([&]<typename L>(Table<L> table) {
    if constexpr (!std::is_same_v<L, C>)
      comparaison.autres = comparaison.autres || Differe(base, table);
  });
  return comparaison;
}

QStringList RestaurerFiches(Base &base, const QString &copie, const QList<FicheEcartee> &choisies) {
  Attacher(base, copie);
  Transaction transaction(base);
  QStringList laissees;
  for (const FicheEcartee &fiche : choisies)
    if (!Restaurer(base, fiche)) laissees.append(fiche.nom);
  transaction.Valider();
  return laissees;
}

bool RestaurerTout(Base &base, const QString &copie, const Avance &avance) {
  Attacher(base, copie);
  Transaction transaction(base);
  qsizetype faites = 0;
  bool continuer = true;
  PourChaqueTable([&](auto table) {
    continuer = continuer && avance(faites++, 6);
    if (continuer) RestaurerTable(base, table);
  });
  if (continuer) transaction.Valider();
  return continuer;
}
