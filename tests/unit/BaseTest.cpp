// The database file: what is refused, what a failure leaves, what goes after a while.

#include "Outils.h"
#include "storage/Balayage.h"
#include "storage/Conflits.h"
#include "storage/Moteur.h"
#include "storage/Requete.h"

#include <QDateTime>
#include <QSqlError>

class Bases : public DansUnDossier {
 protected:
  void Ouvrir() {
    CreerBase(u"a"_s);
    base.Ouvrir(Chemin(u"a"_s));
  }
  static void Ajouter(Base &ou, const QString &nom) {
    Requete(ou, u"INSERT INTO Adresse (NomVelmira) VALUES ('%1')"_s.arg(nom)).Executer();
  }
  Base base;
};

// What another program has made of a base; the words for it.
TEST_F(Bases, Refusees) {
  Cas(R"(
    PRAGMA application_id=0                  | pas une base de données de Velmira
    PRAGMA user_version=2                    | version plus récente
    ALTER TABLE Adresse DROP COLUMN DataProt | endommagé
    DROP TABLE Ville;CREATE VIEW Ville AS SELECT 1 [Index],2 CodePostal,3 Ville,4 Liens | endommagé
  )",
      [this](Rangee c) {
        CreerBase(u"a"_s);
        for (const QString &texte : c[0].split(u';')) Sql(u"a"_s, texte);
        const QByteArray avant = Octets(u"a"_s);
        const QString mots = Echec([&] { base.Ouvrir(Chemin(u"a"_s)); });
        EXPECT_TRUE(mots.contains(c[1]) && mots.contains(Chemin(u"a"_s))) << mots.toStdString();
        EXPECT_TRUE(!base.Ouverte() && Octets(u"a"_s) == avant && !Existe(u"a-journal"_s));
      });
  base.Ouvrir(Chemin(u"absente"_s));
  EXPECT_TRUE(!base.Ouverte() && !Existe(u"absente"_s) && base.Changements() == 0);
  EXPECT_TRUE(Echec([&] { base.Ouvrir(Chemin()); }).contains(u"pas un fichier"_s));
  Cas(R"(5 | l'occupe || 6 | l'occupe || 8 | protégé || 3 | accessible || 14 | accessible
         23 | accessible || 778 | le disque || 11 | endommagé || 7 | imprévue)",
      [](Rangee c) {
        const QSqlError panne(u"pilote"_s, u"moteur"_s, QSqlError::UnknownError, c[0]);
        EXPECT_TRUE(ErreurMoteur(panne, u"a.mdb"_s).Texte().contains(c[1]));
      });
}

// What fails in a transaction loses it, but for a row that the table refuses.
TEST_F(Bases, PanneDansUneTransaction) {
  Cas(R"(
    PRAGMA max_page_count=1 | INSERT INTO Ville (Ville) VALUES (zeroblob(99999)) | plus de place |
    PRAGMA cache_size=9 | PRAGMA query_only=1 | protégé |
    PRAGMA cache_size=9 | SELECT 1 FROM rien | imprévue |
    PRAGMA cache_size=9 | INSERT INTO Ville ([Index]) VALUES (1) | n'admet pas | dedans suite
  )",
      [this](Rangee c) {
        Ouvrir();
        Sql(u"a"_s, u"INSERT INTO Ville DEFAULT VALUES"_s);
        Requete(base, c[0]).Suivante();
        {
          Transaction transaction(base);
          Ajouter(base, u"dedans"_s);
          const QString mots = Echec([&] {
            Requete(base, c[1]).Executer();
            Requete(base, u"DELETE FROM Ville"_s).Executer();
          });
          EXPECT_TRUE(mots.contains(c[2])) << mots.toStdString();
          const bool perdue = c[3].isEmpty();
          EXPECT_EQ(Echec([&] { Ajouter(base, u"suite"_s); }).isEmpty(), !perdue);
          EXPECT_EQ(Echec([&] { transaction.Valider(); }).isEmpty(), !perdue);
        }
        Requete(base, u"SELECT 1"_s).Executer();  // what was lost is over
        return Noms(u"a"_s);
      });
}

TEST_F(Bases, Plusieurs) {
  Ouvrir();
  Requete sure(base, u"PRAGMA synchronous"_s);
  EXPECT_TRUE(sure.Suivante() && sure.Entier(0) == 3) << "lasts over a loss of power";
  Base autre;
  autre.Ouvrir(Chemin(u"a"_s));
  { const Transaction abandonnee(autre); }
  Ajouter(base, u"Luc"_s);  // no lock is left
  // Of long texts the place is shown where they part.
  const QString debut(500, u'n'), fin(119, u'z'), montre = u"« ..."_s + debut.left(40);
  EXPECT_TRUE(TexteConflit({{u"Notes"_s, debut + u"ma"_s + fin, debut + u"sa"_s}})
                  .contains(montre + u"ma"_s + fin.left(118) +
                            u"... »\n   l'autre utilisateur : "_s + montre + u"sa »"_s));
}

// What runs that died have left goes after a day, a workbook after thirty; nothing else does.
TEST_F(Bases, RestesBalayes) {
  const QStringList partent =
      u"app/Plomex.ini.aBcDeF app/.velmira-0123456789abc d/.velmira-0123456789abc "
      "tmp/Velmira-aZbYcX/copie.mdb d/Velmira.mdb-mj0123AB9CD app/Photos/.velmira-0123456789abc "
      "tmp/Sauvan-aZbYcX/convertie.mdb"_s.split(u' ');
  const QStringList restent =
      u"app/Plomex.ini.BackUp d/Velmira.mdb.aBcDeF d/.velmira-notes tmp/Velmira-dWeVfU/x.mdb "
      "d/Velmira.mdb-mj0123AB9CE d/Velmira.mdb-mj0123AB9CF C/gHiJkL/Velmira.xlsx"_s.split(u' ');
  const QString rendu = u"C/aBcDeF/Velmira.xlsx"_s;
  for (const QString &nom : partent + restent + QStringList{rendu}) Poser(nom, "reste");
  QFile::setPermissions(Chemin(rendu), QFile::ReadOwner);  // the other is its user's own by now
  for (const QString &lieu : {u"d"_s, u"p"_s}) CreerBase(lieu + u"/Velmira.mdb"_s, {lieu});
  TuerUnEcrivain(u"p/Velmira.mdb"_s);
  // Of a writing over two bases, both taken back first; of one out of reach; of none at all.
  const auto journal = [this](const char *lieu) {
    return Chemin().toUtf8() + '/' + lieu + "/Velmira.mdb-journal" + '\0';
  };
  Poser(partent[4], journal("d") + journal("p"));
  Poser(restent[4], journal("d") + journal("ailleurs"));
  qputenv("TMPDIR", Chemin(u"tmp"_s).toUtf8());
  for (const int jours : {0, 2, 29, 31}) {
    BalayerRestes({Chemin(u"app"_s), Chemin(u"d"_s), Chemin(u"d"_s), {}, Chemin(u"C"_s)},
                  QDateTime::currentDateTime().addDays(jours));
    for (const QString &nom : partent) EXPECT_EQ(Existe(nom), jours == 0) << nom.toStdString();
    for (const QString &nom : restent) EXPECT_TRUE(Existe(nom)) << nom.toStdString();
    EXPECT_EQ(Existe(u"C/aBcDeF"_s), jours < 30);
  }
  qunsetenv("TMPDIR");
  EXPECT_FALSE(Existe(u"tmp/Velmira-aZbYcX"_s) || Existe(u"tmp/Sauvan-aZbYcX"_s) ||
               Existe(u"p/Velmira.mdb-journal"_s));
  EXPECT_EQ(Noms(u"p/Velmira.mdb"_s), u"p"_s);
}
