#include "storage/TablesAlertes.h"

#include "storage/Enonces.h"
#include "storage/Tables.h"

using namespace Qt::StringLiterals;

namespace {

constexpr Table<TypeAlerte> kType;
constexpr Table<PersonneAlerte> kPersonne;
constexpr Table<Evenement> kEvenement;

constexpr int kColonnesEvenement = kNombreColonnes<Evenement>;
constexpr int kColonnesPersonne = kNombreColonnes<PersonneAlerte>;

/// The columns of an event `e`.
QString ColonnesEvenement() {
  return ListeColonnes(kEvenement, 0, u"e."_s);
}

void Executer(Base &base, const QString &texte, Cle cle) {
  Requete(base, texte).Lier(cle).Executer();
}

}  // namespace

QString TexteAlerteDisparue() {
  return u"Cette alerte n'existe plus : un autre utilisateur l'a supprimée entre-temps."_s;
}

QList<TypeAlerte> TablesAlertes::Types() const {
  return LireLignes<TypeAlerte>(base_, u" WHERE Disponible<>0"_s);
}

Cle TablesAlertes::AjouterType(const QString &texte) {
  Transaction transaction(base_);
  const Cle cle =
      AjouterLigne(base_, TypeAlerte{.ID = 0, .Type_alerte = texte, .Disponible = true});
  transaction.Valider();
  return cle;
}

void TablesAlertes::AjouterTypesUsuels() {
  Transaction transaction(base_);
  if (!LireLignes<TypeAlerte>(base_, {}).isEmpty()) return;
  for (const QString &texte :
       {u"Anniversaire"_s, u"Fête"_s, u"Mariage"_s, u"Réunion"_s, u"Rendez-vous"_s, u"Échéance"_s})
    AjouterLigne(base_, TypeAlerte{.ID = 0, .Type_alerte = texte, .Disponible = true});
  transaction.Valider();
}

void TablesAlertes::SupprimerType(Cle type) {
  Transaction transaction(base_);
  Executer(base_, u"DELETE FROM ListeAlerte WHERE Alerte=?"_s, type);
  Executer(base_, u"UPDATE Alerte SET Disponible=0"_s + ParCle(kType), type);
  transaction.Valider();
}

QList<PersonneEvenements> TablesAlertes::Personnes() const {
  Requete requete(base_, u"SELECT "_s + ListeColonnes(kPersonne, 0, u"p."_s) + u", "_s +
                             ColonnesEvenement() +
                             u", t.Type_alerte FROM Listecoal p LEFT JOIN"
                             " (ListeAlerte e INNER JOIN Alerte t"
                             " ON t.ID=e.Alerte AND t.Disponible<>0) ON e.Nom=p.ID"
                             " WHERE p.Disponible<>0 ORDER BY p.ID, e.ID"_s);
  QList<PersonneEvenements> personnes;
  while (requete.Suivante()) {
    if (personnes.isEmpty() || personnes.constLast().personne.ID != requete.Entier(0))
      personnes.append({LigneCourante<PersonneAlerte>(requete), {}});
    if (requete.Nul(kColonnesPersonne)) continue;
    auto &[personne, evenements] = personnes.last();
    evenements.append({LigneCourante<Evenement>(requete, kColonnesPersonne), personne.Nom,
                       personne.DDN, requete.Texte(kColonnesPersonne + kColonnesEvenement)});
  }
  return personnes;
}

QList<PersonneAlerte> TablesAlertes::PersonnesSupprimees() const {
  return LireLignes<PersonneAlerte>(base_, u" WHERE Disponible=0"_s);
}

std::optional<PersonneAlerte> TablesAlertes::LirePersonne(Cle personne) const {
  const auto lue = LireLigne<PersonneAlerte>(base_, personne);
  return lue && lue->Disponible ? lue : std::nullopt;
}

void TablesAlertes::AjouterPersonne(const QString &nom, const QString &ddn) {
  Transaction transaction(base_);
  AjouterLigne(base_, PersonneAlerte{.ID = 0, .Nom = nom, .DDN = ddn, .Disponible = true});
  transaction.Valider();
}

std::optional<PersonneAlerte> TablesAlertes::ModifierPersonne(const PersonneAlerte &montree,
                                                              const PersonneAlerte &saisie) {
  Transaction transaction(base_);
  if (!LirePersonne(saisie.ID)) throw ErreurBase(TexteDisparu());
  auto stockee = ModifierChangees(base_, montree, saisie, TexteDisparu());
  if (!stockee) transaction.Valider();
  return stockee;
}

void TablesAlertes::Reinscrire(const QList<Cle> &personnes) {
  Transaction transaction(base_);
  for (const Cle personne : personnes)
    Executer(base_, u"UPDATE Listecoal SET Disponible=1"_s + ParCle(kPersonne), personne);
  transaction.Valider();
}

bool TablesAlertes::ImportPossible() const {
  return Requete(base_,
                 u"SELECT 1 FROM Adresse WHERE NOT EXISTS (SELECT 1 FROM Listecoal) LIMIT 1"_s)
      .Suivante();
}

void TablesAlertes::Importer() {
  Transaction transaction(base_);
  // Another user may have answered the same question meanwhile.
  if (!ImportPossible()) return;
  Requete(base_,
          u"INSERT INTO Listecoal (Nom, DDN, Disponible)"
          " SELECT NomVelmira, DDN, 1 FROM Adresse ORDER BY [Index]"_s)
      .Executer();
  Requete(base_, u"UPDATE Adresse SET AlerteActive=1"_s).Executer();
  transaction.Valider();
}

std::optional<EvenementJoint> TablesAlertes::LireEvenement(Cle evenement) const {
  Requete requete(base_, u"SELECT "_s + ColonnesEvenement() +
                             u", p.Nom, p.DDN, t.Type_alerte FROM ListeAlerte e"
                             " INNER JOIN Listecoal p ON p.ID=e.Nom"
                             " INNER JOIN Alerte t ON t.ID=e.Alerte WHERE e.ID=?"_s);
  requete.Lier(evenement);
  if (!requete.Suivante()) return std::nullopt;
  return EvenementJoint{LigneCourante<Evenement>(requete, 0), requete.Texte(kColonnesEvenement),
                        requete.Texte(kColonnesEvenement + 1),
                        requete.Texte(kColonnesEvenement + 2)};
}

void TablesAlertes::ExigerType(Cle type) const {
  const auto lu = LireLigne<TypeAlerte>(base_, type);
  if (!lu || !lu->Disponible)
    throw ErreurBase(
        u"Cet évènement n'existe plus dans la liste : un autre utilisateur l'a supprimé "
        "entre-temps."_s);
}

void TablesAlertes::AjouterEvenement(const Evenement &evenement) {
  Transaction transaction(base_);
  if (!LirePersonne(evenement.Nom)) throw ErreurBase(TexteDisparu());
  ExigerType(evenement.Alerte);
  AjouterLigne(base_, evenement);
  transaction.Valider();
}

std::optional<Evenement> TablesAlertes::ModifierEvenement(const Evenement &montre,
                                                          const Evenement &saisi) {
  Transaction transaction(base_);
  ExigerType(saisi.Alerte);
  auto stocke = ModifierChangees(base_, montre, saisi, TexteAlerteDisparue());
  if (!stocke) transaction.Valider();
  return stocke;
}

void TablesAlertes::Supprimer(const QList<Cle> &personnes, const QList<Cle> &evenements) {
  Transaction transaction(base_);
  for (const Cle personne : personnes) {
    Executer(base_, u"UPDATE Listecoal SET Disponible=0"_s + ParCle(kPersonne), personne);
    Executer(base_, u"DELETE FROM ListeAlerte WHERE Nom=?"_s, personne);
  }
  for (const Cle evenement : evenements) SupprimerLigne(base_, kEvenement, evenement);
  transaction.Valider();
}
