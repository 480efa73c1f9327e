// The alerts in the database: what a deletion takes along and what it spares, the first import, and
// commands that fail half-way.

#include "Outils.h"
#include "alerts/PersonnesAlerte.h"
#include "commun/BoitesMuettes.h"
#include "storage/Requete.h"
#include "storage/Schema.h"
#include "storage/Tables.h"
#include "storage/TablesAlertes.h"

#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

class AlertesTest : public DansUnDossier {
 protected:
  AlertesTest() {
    CreerBaseVide(Chemin(u"Velmira.mdb"_s));
    base.Ouvrir(Chemin(u"Velmira.mdb"_s));
  }

  void Sql(const QString &texte) { Requete(base, texte).Executer(); }

  /// Types 1 and 2, people 1 to 3, events 1 and 4 of the first person, 2 of the second, 3 of
  /// the third.
  void Peupler() {
    for (const auto *type : {u"Anniversaire", u"Réunion"})
      tables.AjouterType(QString::fromUtf16(type));
    for (const auto *nom : {u"Paul", u"Berthe", u"Claude"})
      tables.AjouterPersonne(QString::fromUtf16(nom), u"25/12/1960"_s);
    Ajouter(1, 1, u"25/12/2026"_s);
    Ajouter(2, 2, u"04/07/2026"_s);
    Ajouter(3, 1, u"05/07/2026"_s);
    Ajouter(1, 2, u"01/01/2026"_s);
  }
  void Ajouter(Cle personne, Cle type, const QString &date) {
    tables.AjouterEvenement({.ID = 0,
                             .Nom = personne,
                             .Alerte = type,
                             .Date = date,
                             .Annuel = true,
                             .Age = false,
                             .Delai = 3,
                             .Actif = true});
  }

  /// All rows of the three tables, those that are out of force with "-" in front.
  QString Etat() {
    QStringList parties;
    for (const auto *texte :
         {u"SELECT ID, Type_alerte, Disponible FROM Alerte",
          u"SELECT ID, Nom, Disponible FROM Listecoal",
          u"SELECT ID, Nom || ':' || Alerte || ':' || Date, 1 FROM ListeAlerte"}) {
      Requete requete(base, QString::fromUtf16(texte) + u" ORDER BY ID"_s);
      QStringList lignes;
      while (requete.Suivante())
        lignes.append((requete.Entier(2) != 0 ? u""_s : u"-"_s) + requete.Texte(0) + u' ' +
                      requete.Texte(1));
      parties.append(lignes.join(u", "));
    }
    return parties.join(u" | ");
  }

  QString Arbre() {
    QStringList noeuds;
    for (const auto &[personne, evenements] : tables.Personnes()) {
      noeuds.append(personne.Nom);
      for (const EvenementJoint &joint : evenements)
        noeuds.append(joint.Type_alerte + QString::number(joint.evenement.ID));
    }
    return noeuds.join(u' ');
  }

  Base base;
  TablesAlertes tables{base};
};

const QString kEtat =
    u"1 Anniversaire, 2 Réunion | 1 Paul, 2 Berthe, 3 Claude | "
    "1 1:1:25/12/2026, 2 2:2:04/07/2026, 3 3:1:05/07/2026, 4 1:2:01/01/2026"_s;

}  // namespace

TEST_F(AlertesTest, ArbreDeCeQuiEstEnVigueur) {
  EXPECT_TRUE(tables.Personnes().isEmpty());
  Peupler();
  EXPECT_EQ(Etat(), kEtat);
  EXPECT_EQ(Arbre(), u"Paul Anniversaire1 Réunion4 Berthe Réunion2 Claude Anniversaire3"_s);
  Sql(u"UPDATE Alerte SET Disponible=0 WHERE ID=2"_s);
  Sql(u"UPDATE Listecoal SET Disponible=0 WHERE ID=3"_s);
  EXPECT_EQ(Arbre(), u"Paul Anniversaire1 Berthe"_s) << "who has no event stays";
  const auto premiere = tables.Personnes().constFirst();
  EXPECT_EQ(premiere.personne.DDN, u"25/12/1960"_s);
  EXPECT_EQ(premiere.evenements.constFirst().evenement.Date, u"25/12/2026"_s);
  EXPECT_TRUE(premiere.evenements.constFirst().evenement.Annuel);
  EXPECT_EQ(tables.PersonnesSupprimees().size(), 1);
  EXPECT_EQ(tables.Types().size(), 1);
}

TEST_F(AlertesTest, EvenementEcritEtRelu) {
  Peupler();
  tables.ModifierEvenement(tables.LireEvenement(4)->evenement, {.ID = 4,
                                                                .Nom = 1,
                                                                .Alerte = 1,
                                                                .Date = u"02/02/2027"_s,
                                                                .Annuel = false,
                                                                .Age = true,
                                                                .Delai = 31,
                                                                .Actif = false});
  const auto joint = tables.LireEvenement(4);
  ASSERT_TRUE(joint);
  const Evenement &relu = joint->evenement;
  EXPECT_EQ(
      std::tuple(relu.Nom, relu.Alerte, relu.Date, relu.Annuel, relu.Age, relu.Delai, relu.Actif),
      std::tuple(1, 1, u"02/02/2027"_s, false, true, 31, false));
  EXPECT_EQ(std::tuple(joint->Nom, joint->DDN, joint->Type_alerte),
            std::tuple(u"Paul"_s, u"25/12/1960"_s, u"Anniversaire"_s));
  EXPECT_EQ(tables.LireEvenement(1)->evenement.Delai, 3);
  EXPECT_FALSE(tables.LireEvenement(9));
}

TEST_F(AlertesTest, SupprimerUnType) {
  Peupler();
  tables.SupprimerType(2);
  EXPECT_EQ(Etat(),
            u"1 Anniversaire, -2 Réunion | 1 Paul, 2 Berthe, 3 Claude | "
            "1 1:1:25/12/2026, 3 3:1:05/07/2026"_s);
  EXPECT_EQ(tables.AjouterType(u"Réunion"_s), 3) << "typed again it is a new one";
}

TEST_F(AlertesTest, SupprimerPuisReinscrire) {
  Peupler();
  tables.Supprimer({1}, {2, 4, 99});  // 4 has gone with its person
  EXPECT_EQ(Etat(),
            u"1 Anniversaire, 2 Réunion | -1 Paul, 2 Berthe, 3 Claude | 3 3:1:05/07/2026"_s);
  tables.Reinscrire({1});
  EXPECT_EQ(Arbre(), u"Paul Berthe Claude Anniversaire3"_s);
}

TEST_F(AlertesTest, Importer) {
  EXPECT_FALSE(tables.ImportPossible()) << "nobody to take over";
  TableAdresse adresses(base);
  for (const auto *nom : {u"Zoé", u"d'O\"r", u"Albert"}) {
    Correspondant fiche;
    fiche.NomVelmira = QString::fromUtf16(nom);
    if (nom == u"Zoé"_s) fiche.DDN = u"03/04/1970"_s;
    adresses.Ajouter(fiche, false);
  }
  EXPECT_TRUE(tables.ImportPossible());
  tables.Importer();
  EXPECT_EQ(Etat(), u" | 1 Zoé, 2 d'O\"r, 3 Albert | "_s);
  EXPECT_EQ(tables.LirePersonne(1)->DDN, u"03/04/1970"_s);
  EXPECT_TRUE(tables.LirePersonne(2)->DDN.isEmpty());
  for (Cle index = 1; index <= 3; ++index) EXPECT_TRUE(adresses.Lire(index)->AlerteActive);

  tables.Supprimer({1, 2, 3}, {});
  EXPECT_FALSE(tables.ImportPossible()) << "the rows of deleted people count";
  tables.Importer();
  EXPECT_EQ(Etat(), u" | -1 Zoé, -2 d'O\"r, -3 Albert | "_s);
}

TEST_F(AlertesTest, SupprimeEntreTempsParUnAutre) {
  Peupler();
  tables.Supprimer({2}, {1});
  Sql(u"UPDATE Alerte SET Disponible=0 WHERE ID=2"_s);
  const QString avant = Etat();
  const Evenement bon{.ID = 3,
                      .Nom = 3,
                      .Alerte = 1,
                      .Date = u"01/01/2027"_s,
                      .Annuel = true,
                      .Age = true,
                      .Delai = 1,
                      .Actif = true};
  Evenement parti = bon, sansType = bon, sansPersonne = bon;
  parti.ID = 1;
  sansType.Alerte = 2;
  sansPersonne.Nom = 2;
  EXPECT_THROW(tables.ModifierEvenement(parti, parti), ErreurBase);
  EXPECT_THROW(tables.ModifierEvenement(bon, sansType), ErreurBase);
  EXPECT_THROW(tables.AjouterEvenement(sansType), ErreurBase);
  EXPECT_THROW(tables.AjouterEvenement(sansPersonne), ErreurBase);
  EXPECT_THROW(tables.ModifierPersonne({2, u"B"_s, u""_s, true}, {2, u"C"_s, u""_s, true}),
               ErreurBase);
  EXPECT_FALSE(tables.LirePersonne(2));
  EXPECT_EQ(Etat(), avant);
  EXPECT_NO_THROW(tables.ModifierEvenement(bon, bon)) << "no transaction is left open";
}

/// The user's entries; before each of them another user may write.
struct BoitesDeDeux : BoitesMuettes {
  QList<std::pair<QString, std::function<void()>>> saisies;
  QList<Choix> choix;
  QStringList defauts, questions;

  std::optional<QString> Saisie(const QString &, const QString &, const QString &defaut) override {
    defauts.append(defaut);
    if (saisies.isEmpty()) return {};
    const auto [reponse, avant] = saisies.takeFirst();
    if (avant) avant();
    return reponse;
  }
  Choix QuestionAnnulable(const QString &, const QString &texte) override {
    questions.append(texte);
    return choix.isEmpty() ? Choix::Non : choix.takeFirst();
  }
};

// While the user types a name and a birth date, another changes the same person.
TEST_F(AlertesTest, PersonneChangeeParDeux) {
  Peupler();
  const auto autre = [this](const QString &nom, const QString &ddn) {
    return [this, nom, ddn] {
      Sql(u"UPDATE Listecoal SET Nom='%1', DDN='%2' WHERE ID=1"_s.arg(nom, ddn));
    };
  };
  const auto personne = [this] {
    const auto lue = tables.LirePersonne(1);
    return lue->Nom + u' ' + lue->DDN;
  };
  BoitesDeDeux boites;
  PersonnesAlerte personnes(boites, base);
  // A name that was only confirmed gives way.
  boites.saisies = {{u"Paul"_s, {}}, {u"01/01/1961"_s, autre(u"Paule"_s, u"25/12/1960"_s)}};
  EXPECT_TRUE(personnes.Modifier(1));
  EXPECT_EQ(personne(), u"Paule 01/01/1961"_s);
  EXPECT_TRUE(boites.questions.isEmpty());
  // Back to the entry, which proposes what was typed; then one's own.
  boites.choix = {Boites::Choix::Annuler, Boites::Choix::Oui};
  boites.defauts.clear();
  boites.saisies = {{u"Zoé"_s, {}},
                    {u"01/01/1961"_s, autre(u"Léa"_s, u"02/02/1962"_s)},
                    {u"Zoé"_s, {}},
                    {u"01/01/1961"_s, {}}};
  EXPECT_TRUE(personnes.Modifier(1));
  EXPECT_EQ(boites.defauts[2], u"Zoé"_s);
  EXPECT_EQ(boites.questions.size(), 2);
  EXPECT_TRUE(boites.questions[0].contains(u"ZOÉ"_s) && boites.questions[0].contains(u"Léa"_s));
  EXPECT_EQ(personne(), u"ZOÉ 02/02/1962"_s);
  // Theirs.
  boites.choix = {Boites::Choix::Non};
  boites.saisies = {{u"Max"_s, {}}, {u"03/03/1963"_s, autre(u"Léa"_s, u"02/02/1962"_s)}};
  EXPECT_TRUE(personnes.Modifier(1));
  EXPECT_EQ(personne(), u"Léa 03/03/1963"_s);
}

// Each command is stopped by the last row that it touches.
TEST_F(AlertesTest, CommandeQuiEchoue) {
  Peupler();
  Correspondant fiche;
  fiche.NomVelmira = u"Zoé"_s;
  TableAdresse(base).Ajouter(fiche, false);
  for (const auto *refus :
       {u"DELETE ON ListeAlerte WHEN OLD.ID=2", u"UPDATE ON Alerte WHEN OLD.ID=1",
        u"UPDATE ON Adresse WHEN 1", u"UPDATE ON Listecoal WHEN OLD.ID=3"}) {
    const QString evenement = QString::fromUtf16(refus);
    Sql(u"CREATE TRIGGER \"%1\" BEFORE %1 BEGIN SELECT RAISE(ABORT, 'non'); END"_s.arg(evenement));
  }
  EXPECT_THROW(tables.Supprimer({1, 2}, {}), ErreurBase);
  EXPECT_EQ(Etat(), kEtat) << "the first person is still there";
  EXPECT_THROW(tables.Supprimer({1}, {3, 2}), ErreurBase);
  EXPECT_EQ(Etat(), kEtat);
  EXPECT_THROW(tables.SupprimerType(1), ErreurBase);
  EXPECT_EQ(Etat(), kEtat) << "its events are still there";

  Sql(u"UPDATE Listecoal SET Disponible=0 WHERE ID<>3"_s);
  const QString avant = Etat();
  EXPECT_THROW(tables.Reinscrire({1, 2, 3}), ErreurBase);
  EXPECT_EQ(Etat(), avant);

  Sql(u"DELETE FROM Listecoal"_s);
  EXPECT_THROW(tables.Importer(), ErreurBase);
  EXPECT_TRUE(tables.ImportPossible());
}
