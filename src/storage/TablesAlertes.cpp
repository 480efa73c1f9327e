#include "storage/TablesAlertes.h"

#include "storage/Tables.h"

using namespace Qt::StringLiterals;

namespace {

/// The columns of an event `e` as `EvenementLu` takes them.
const QString kEvenement = u"e.ID, e.Nom, e.Alerte, e.Date, e.Annuel, e.Age, e.Delai, e.Actif"_s;
constexpr int kColonnes = 8;

Evenement EvenementLu(const Requete &requete, int premiere) {
  return {.ID = requete.Entier(premiere),
          .Nom = requete.Entier(premiere + 1),
          .Alerte = requete.Entier(premiere + 2),
          .Date = requete.Texte(premiere + 3),
          .Annuel = requete.Entier(premiere + 4) != 0,
          .Age = requete.Entier(premiere + 5) != 0,
          .Delai = static_cast<int>(requete.Entier(premiere + 6)),
          .Actif = requete.Entier(premiere + 7) != 0};
}

PersonneAlerte PersonneLue(const Requete &requete) {
  return {.ID = requete.Entier(0),
          .Nom = requete.Texte(1),
          .DDN = requete.Texte(2),
          .Disponible = requete.Entier(3) != 0};
}

void Executer(Base &base, const QString &texte, Cle cle) {
  Requete(base, texte).Lier(cle).Executer();
}

}  // namespace

QString TexteAlerteDisparue() {
  return u"Cette alerte n'existe plus : un autre utilisateur l'a supprimée entre-temps."_s;
}

QList<TypeAlerte> TablesAlertes::Types() const {
  Requete requete(base_, u"SELECT ID, Type_alerte FROM Alerte WHERE Disponible<>0 ORDER BY ID"_s);
  QList<TypeAlerte> types;
  while (requete.Suivante())
    types.append({.ID = requete.Entier(0), .Type_alerte = requete.Texte(1), .Disponible = true});
  return types;
}

Cle TablesAlertes::AjouterType(const QString &texte) {
  Transaction transaction(base_);
  const Cle cle =
      AjouterLigne(base_, TypeAlerte{.ID = 0, .Type_alerte = texte, .Disponible = true});
  transaction.Valider();
  return cle;
}

void TablesAlertes::SupprimerType(Cle type) {
  Transaction transaction(base_);
  Executer(base_, u"DELETE FROM ListeAlerte WHERE Alerte=?"_s, type);
  Executer(base_, u"UPDATE Alerte SET Disponible=0 WHERE ID=?"_s, type);
  transaction.Valider();
}

QList<PersonneEvenements> TablesAlertes::Personnes() const {
  Requete requete(base_, u"SELECT p.ID, p.Nom, p.DDN, p.Disponible, "_s + kEvenement +
                             u", t.Type_alerte FROM Listecoal p LEFT JOIN"
                             " (ListeAlerte e INNER JOIN Alerte t"
                             " ON t.ID=e.Alerte AND t.Disponible<>0) ON e.Nom=p.ID"
                             " WHERE p.Disponible<>0 ORDER BY p.ID, e.ID"_s);
  constexpr int kPremiere = 4;
  QList<PersonneEvenements> personnes;
  while (requete.Suivante()) {
    if (personnes.isEmpty() || personnes.constLast().personne.ID != requete.Entier(0))
      personnes.append({PersonneLue(requete), {}});
    if (requete.Nul(kPremiere)) continue;
    auto &[personne, evenements] = personnes.last();
    evenements.append({EvenementLu(requete, kPremiere), personne.Nom, personne.DDN,
                       requete.Texte(kPremiere + kColonnes)});
  }
  return personnes;
}

QList<PersonneAlerte> TablesAlertes::PersonnesSupprimees() const {
  Requete requete(
      base_, u"SELECT ID, Nom, DDN, Disponible FROM Listecoal WHERE Disponible=0 ORDER BY ID"_s);
  QList<PersonneAlerte> personnes;
  while (requete.Suivante()) personnes.append(PersonneLue(requete));
  return personnes;
}

std::optional<PersonneAlerte> TablesAlertes::LirePersonne(Cle personne) const {
  Requete requete(base_,
                  u"SELECT ID, Nom, DDN, Disponible FROM Listecoal WHERE ID=? AND Disponible<>0"_s);
  requete.Lier(personne);
  if (!requete.Suivante()) return std::nullopt;
  return PersonneLue(requete);
}

void TablesAlertes::AjouterPersonne(const QString &nom, const QString &ddn) {
  Transaction transaction(base_);
  AjouterLigne(base_, PersonneAlerte{.ID = 0, .Nom = nom, .DDN = ddn, .Disponible = true});
  transaction.Valider();
}

void TablesAlertes::ModifierPersonne(const PersonneAlerte &personne) {
  Transaction transaction(base_);
  const auto changees =
      Requete(base_, u"UPDATE Listecoal SET Nom=?, DDN=? WHERE ID=? AND Disponible<>0"_s)
          .Lier(personne.Nom)
          .Lier(personne.DDN)
          .Lier(personne.ID)
          .Executer();
  if (changees == 0) throw ErreurBase(TexteDisparu());
  transaction.Valider();
}

void TablesAlertes::Reinscrire(const QList<Cle> &personnes) {
  Transaction transaction(base_);
  for (const Cle personne : personnes)
    Executer(base_, u"UPDATE Listecoal SET Disponible=1 WHERE ID=?"_s, personne);
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
          uR"(INSERT INTO Listecoal (Nom, DDN, Disponible))"
          uR"( SELECT NomVelmira, DDN, 1 FROM Adresse ORDER BY "Index")"_s)
      .Executer();
  Requete(base_, u"UPDATE Adresse SET AlerteActive=1"_s).Executer();
  transaction.Valider();
}

std::optional<EvenementJoint> TablesAlertes::LireEvenement(Cle evenement) const {
  Requete requete(base_, u"SELECT "_s + kEvenement +
                             u", p.Nom, p.DDN, t.Type_alerte FROM ListeAlerte e"
                             " INNER JOIN Listecoal p ON p.ID=e.Nom"
                             " INNER JOIN Alerte t ON t.ID=e.Alerte WHERE e.ID=?"_s);
  requete.Lier(evenement);
  if (!requete.Suivante()) return std::nullopt;
  return EvenementJoint{EvenementLu(requete, 0), requete.Texte(kColonnes),
                        requete.Texte(kColonnes + 1), requete.Texte(kColonnes + 2)};
}

void TablesAlertes::ExigerType(Cle type) const {
  Requete requete(base_, u"SELECT 1 FROM Alerte WHERE ID=? AND Disponible<>0"_s);
  requete.Lier(type);
  if (!requete.Suivante())
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

void TablesAlertes::ModifierEvenement(const Evenement &evenement) {
  Transaction transaction(base_);
  ExigerType(evenement.Alerte);
  const auto changes = Requete(base_,
                               u"UPDATE ListeAlerte SET Alerte=?, Date=?, Annuel=?, Age=?, "
                               "Delai=?, Actif=? WHERE ID=?"_s)
                           .Lier(evenement.Alerte)
                           .Lier(evenement.Date)
                           .Lier(evenement.Annuel)
                           .Lier(evenement.Age)
                           .Lier(evenement.Delai)
                           .Lier(evenement.Actif)
                           .Lier(evenement.ID)
                           .Executer();
  if (changes == 0) throw ErreurBase(TexteAlerteDisparue());
  transaction.Valider();
}

void TablesAlertes::Supprimer(const QList<Cle> &personnes, const QList<Cle> &evenements) {
  Transaction transaction(base_);
  for (const Cle personne : personnes) {
    Executer(base_, u"UPDATE Listecoal SET Disponible=0 WHERE ID=?"_s, personne);
    Executer(base_, u"DELETE FROM ListeAlerte WHERE Nom=?"_s, personne);
  }
  for (const Cle evenement : evenements)
    Executer(base_, u"DELETE FROM ListeAlerte WHERE ID=?"_s, evenement);
  transaction.Valider();
}

void TablesAlertes::PourChaqueEvenement(
    const std::function<bool(const Evenement &)> &visiteur) const {
  Requete requete(base_, u"SELECT "_s + kEvenement +
                             u" FROM ListeAlerte e INNER JOIN Listecoal p ON p.ID=e.Nom"
                             " INNER JOIN Alerte t ON t.ID=e.Alerte"
                             " WHERE p.Disponible<>0 AND t.Disponible<>0 ORDER BY e.Date"_s);
  while (requete.Suivante() && visiteur(EvenementLu(requete, 0))) {
  }
}
