// What concerns the database as a whole: all telephone numbers at once, and the copy to another
// folder.

#include "Outils.h"
#include "storage/Base.h"
#include "storage/Requete.h"
#include "storage/Schema.h"
#include "storage/Tables.h"
#include "storage/TransfertBase.h"

#include <filesystem>

using namespace Qt::StringLiterals;

namespace {

QString Doubler(const QString &texte) {
  return texte + texte;
}

QStringList Noms(Base &base) {
  QStringList noms;
  TableAdresse(base).PourChaque(
      [&](EntreeListe &&entree) { noms.append(std::move(entree.NomVelmira)); });
  return noms;
}

class Entretien : public DansUnDossier {
 protected:
  void Creer(const QString &nom, const QStringList &velmiras) const {
    CreerBaseVide(Chemin(nom));
    Base base;
    base.Ouvrir(Chemin(nom));
    for (const QString &velmira : velmiras) {
      Correspondant fiche;
      fiche.NomVelmira = velmira;
      AjouterLigne(base, fiche);
    }
  }
  QStringList NomsDe(const QString &nom) const {
    Base base;
    base.Ouvrir(Chemin(nom));
    return Noms(base);
  }
  void Executer(const QString &nom, const QString &texte) const {
    Base base;
    base.Ouvrir(Chemin(nom));
    Requete(base, texte).Executer();
  }
};

TEST_F(Entretien, NumerosDeTous) {
  Creer(u"a"_s, {u"Albert"_s, u"Berthe"_s, u"Claude"_s, u"Denise"_s});
  Base base;
  base.Ouvrir(Chemin(u"a"_s));
  TableAdresse table(base);
  const auto ecrire = [&](Cle index, const QString &tel, const QString &fax) {
    auto fiche = table.Lire(index);
    fiche->Tel = tel;
    fiche->Fax = fax;
    ModifierLigne(base, *fiche, Seulement(&Correspondant::Tel, &Correspondant::Fax));
  };
  ecrire(1, u"1"_s, QString());
  ecrire(2, u"2"_s, u""_s);
  ecrire(3, u"3"_s, u"vide"_s);
  Requete(base, u"CREATE TABLE trace (cle)"_s).Executer();
  Requete(
      base,
      u"CREATE TRIGGER garde BEFORE UPDATE ON Adresse BEGIN INSERT INTO trace VALUES (new.[Index]);"
      " SELECT RAISE(ABORT, 'non') WHERE new.[Index]=2; END"_s)
      .Executer();

  QList<std::pair<qsizetype, qsizetype>> avance;
  const bool faite = table.ReformaterTelephones(
      [](const QString &texte) { return texte == u"vide"_s ? QString() : Doubler(texte); },
      [&](qsizetype fait, qsizetype total) {
        avance.append({fait, total});
        return true;
      });

  EXPECT_TRUE(faite);
  EXPECT_EQ(table.Lire(1)->Tel, u"11"_s);
  EXPECT_TRUE(table.Lire(1)->Fax.isNull());
  EXPECT_EQ(table.Lire(2)->Tel, u"2"_s) << "a record that cannot be written is passed over";
  EXPECT_EQ(table.Lire(3)->Tel, u"33"_s);
  EXPECT_EQ(table.Lire(3)->Fax, u""_s);
  EXPECT_FALSE(table.Lire(3)->Fax.isNull());
  ASSERT_FALSE(avance.isEmpty());
  EXPECT_EQ(avance.constLast(), std::pair(qsizetype{3}, qsizetype{3}));
  Requete traces(base, u"SELECT count(*) FROM trace WHERE cle=4"_s);
  ASSERT_TRUE(traces.Suivante());
  EXPECT_EQ(traces.Entier(0), 0) << "a record without numbers is not written";

  EXPECT_FALSE(table.ReformaterTelephones(Doubler, [](qsizetype, qsizetype) { return false; }));
  EXPECT_EQ(table.Lire(1)->Tel, u"11"_s) << "a run that is stopped changes nothing";
  EXPECT_EQ(table.Lire(3)->Tel, u"33"_s);
}

TEST_F(Entretien, TransfertVersUneBaseOuverte) {
  Creer(u"source"_s, {u"Albert"_s, u"Berthe"_s});
  Creer(u"but"_s, {u"Claude"_s, u"Denise"_s, u"Emile"_s});
  Executer(u"source"_s, u"DELETE FROM Adresse WHERE [Index]=2"_s);
  Base voisin, lecteur;
  voisin.Ouvrir(Chemin(u"but"_s));
  lecteur.Ouvrir(Chemin(u"source"_s));
  EXPECT_EQ(Noms(voisin).size(), 3);

  TransfererBase(Chemin(u"source"_s), Chemin(u"but"_s));

  EXPECT_EQ(Noms(voisin), QStringList{u"Albert"_s}) << "who has it open sees what came";
  EXPECT_EQ(AjouterLigne(voisin, Correspondant()), 3) << "a key is never given a second time";
  EXPECT_EQ(NomsDe(u"but"_s).size(), 2) << "and what he writes is not lost";
  EXPECT_EQ(NomsDe(u"source"_s), QStringList{u"Albert"_s});
}

TEST_F(Entretien, TransfertVersUnAutreFichier) {
  Creer(u"source"_s, {u"Albert"_s});
  Base lecteur;
  lecteur.Ouvrir(Chemin(u"source"_s));
  Poser(u"etranger"_s, "ni base ni rien");
  Poser(u"etranger-journal"_s, "d'une écriture interrompue");
  Creer(u"futur"_s, {u"Claude"_s});
  Executer(u"futur"_s, u"PRAGMA user_version=%1"_s.arg(Base::kVersion + 1));
  for (const QString &but : {u"absent"_s, u"etranger"_s, u"futur"_s}) {
    TransfererBase(Chemin(u"source"_s), Chemin(but));
    EXPECT_EQ(NomsDe(but), QStringList{u"Albert"_s}) << but.toStdString();
  }
  EXPECT_FALSE(Existe(u"etranger-journal"_s));

  // Whatever the source is, it arrives.
  Poser(u"ancienne"_s, "une base d'un autre programme");
  TransfererBase(Chemin(u"ancienne"_s), Chemin(u"absent"_s));
  EXPECT_EQ(Octets(u"absent"_s), Octets(u"ancienne"_s));
}

TEST_F(Entretien, TransfertQuiNeVaPas) {
  Creer(u"source"_s, {u"Albert"_s});
  const QByteArray avant = Octets(u"source"_s);
  std::filesystem::create_hard_link(Chemin(u"source"_s).toStdString(),
                                    Chemin(u"autre nom"_s).toStdString());
  for (const QString &meme : {u"source"_s, u"./source"_s, u"autre nom"_s})
    TransfererBase(Chemin(u"source"_s), Chemin(meme));
  EXPECT_EQ(Octets(u"source"_s), avant);

  EXPECT_THROW(TransfererBase(Chemin(u"disparue"_s), Chemin(u"source"_s)), Erreur);
  EXPECT_EQ(Octets(u"source"_s), avant);

  Creer(u"but"_s, {});
  {
    Base base;
    base.Ouvrir(Chemin(u"source"_s));
    Transaction transaction(base);
    Correspondant fiche;
    fiche.Commentaires = QString(200'000, u'x');
    AjouterLigne(base, fiche);
    transaction.Valider();
  }
  {
    const DisquePlein plein(100'000);
    EXPECT_THROW(TransfererBase(Chemin(u"source"_s), Chemin(u"but"_s)), Erreur);
  }
  EXPECT_EQ(NomsDe(u"but"_s), QStringList());
}

}  // namespace
