// What concerns the database as a whole: all telephone numbers at once, the copy to another folder,
// and what runs that died have left.

#include "Outils.h"
#include "storage/Balayage.h"
#include "storage/Base.h"
#include "storage/Requete.h"
#include "storage/Schema.h"
#include "storage/Tables.h"
#include "storage/TransfertBase.h"

#include <QDateTime>

#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

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
  for (const QString &but : {u"absent"_s, u"etranger"_s}) {
    TransfererBase(Chemin(u"source"_s), Chemin(but));
    EXPECT_EQ(NomsDe(but), QStringList{u"Albert"_s}) << but.toStdString();
  }
  EXPECT_FALSE(Existe(u"etranger-journal"_s));
  const QByteArray futur = Octets(u"futur"_s);
  EXPECT_THROW(TransfererBase(Chemin(u"source"_s), Chemin(u"futur"_s)), ErreurBase);
  EXPECT_EQ(Octets(u"futur"_s), futur) << "it may hold what this version cannot keep";
}

// Somebody is writing into the source: he does not wait, and what he has not ended does not count.
TEST_F(Entretien, TransfertDUneSourceOuSEcrit) {
  Creer(u"source"_s, {u"Albert"_s});
  Creer(u"but"_s, {u"Claude"_s});
  Base ecrivain;
  ecrivain.Ouvrir(Chemin(u"source"_s));
  Transaction transaction(ecrivain);
  AjouterLigne(ecrivain, Correspondant());
  for (const QString &but : {u"but"_s, u"neuf"_s}) {
    TransfererBase(Chemin(u"source"_s), Chemin(but));
    EXPECT_EQ(NomsDe(but), QStringList{u"Albert"_s}) << but.toStdString();
  }
  transaction.Valider();
  EXPECT_EQ(NomsDe(u"source"_s).size(), 2);
}

TEST_F(Entretien, TransfertQuiNeVaPas) {
  Creer(u"source"_s, {u"Albert"_s});
  const QByteArray avant = Octets(u"source"_s);
  std::filesystem::create_hard_link(Chemin(u"source"_s).toStdString(),
                                    Chemin(u"autre nom"_s).toStdString());
  for (const QString &meme : {u"source"_s, u"./source"_s, u"autre nom"_s})
    TransfererBase(Chemin(u"source"_s), Chemin(meme));
  EXPECT_EQ(Octets(u"source"_s), avant);

  Poser(u"etrangere"_s, "une base d'un autre programme");
  for (const QString &mauvaise : {u"disparue"_s, u"etrangere"_s})
    EXPECT_THROW(TransfererBase(Chemin(mauvaise), Chemin(u"source"_s)), Erreur);
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

TEST_F(Entretien, RestesBalayes) {
  for (const QString &nom :
       {u"app"_s, u"base"_s, u"tmp"_s, u"tmp/Velmira-aZbYcX"_s, u"tmp/Velmira-dWeVfU"_s,
        u"partage"_s, u"Classeurs"_s, u"Classeurs/aBcDeF"_s, u"Classeurs/gHiJkL"_s})
    ASSERT_TRUE(QDir().mkdir(Chemin(nom)));
  Creer(u"base/Velmira.mdb"_s, {u"Albert"_s});
  Creer(u"partage/Velmira.mdb"_s, {u"Berthe"_s});
  const auto journal = [this](const QString &dossier) {
    return QFile::encodeName(Chemin(dossier + u"/Velmira.mdb-journal"_s)) + '\0';
  };
  const QStringList partent{
      u"app/Plomex.ini.aBcDeF"_s,        u"app/.velmira-0123456789abc"_s,
      u"base/.velmira-0123456789abc"_s,  u"tmp/Velmira-aZbYcX/copie.mdb"_s,
      u"base/Velmira.mdb-mj0123AB9CD"_s,
  };
  const QStringList restent{
      u"app/Plomex.ini.backup"_s,
      u"app/Plomex.ini.BackUp"_s,
      u"base/Velmira.mdb.aBcDeF"_s,
      u"base/.velmira-notes"_s,
      u"tmp/Velmira-dWeVfU/classeur.xlsx"_s,
      u"base/Velmira.mdb-mj0123AB9CE"_s,  // of a base that is out of reach
      u"base/Velmira.mdb-mj0123AB9CF"_s,  // of no base that anybody knows
  };
  for (const QString &nom : partent + restent) Poser(nom, "reste");
  Poser(u"base/Velmira.mdb-mj0123AB9CD"_s, journal(u"base"_s) + journal(u"partage"_s));
  Poser(u"base/Velmira.mdb-mj0123AB9CE"_s, journal(u"base"_s) + journal(u"ailleurs"_s));
  const QByteArray tmp = qgetenv("TMPDIR");
  qputenv("TMPDIR", QFile::encodeName(Chemin(u"tmp"_s)));
  const Dossiers dossiers{
      Chemin(u"app"_s), Chemin(u"base"_s), Chemin(u"base"_s), {}, Chemin(u"Classeurs"_s)};
  const auto laissees = [this](const QStringList &noms) {
    QStringList la = noms;
    la.removeIf([this](const QString &nom) { return !Existe(nom); });
    return la;
  };
  BalayerRestes(dossiers, QDateTime::currentDateTime());
  EXPECT_EQ(laissees(partent + restent), partent + restent) << "another run may be at work on them";
  BalayerRestes(dossiers, QDateTime::currentDateTime().addDays(2));
  EXPECT_EQ(laissees(partent), QStringList());
  EXPECT_FALSE(Existe(u"tmp/Velmira-aZbYcX"_s));
  EXPECT_EQ(laissees(restent), restent);
  // A workbook that was handed over goes after 30 days, unless its user has made it his own.
  const QString rendu = u"Classeurs/aBcDeF/Velmira.xlsx"_s,
                pris = u"Classeurs/gHiJkL/Velmira.xlsx"_s;
  for (const QString &nom : {rendu, pris}) Poser(nom, "classeur");
  QFile::setPermissions(Chemin(rendu), QFile::ReadOwner);
  BalayerRestes(dossiers, QDateTime::currentDateTime().addDays(29));
  EXPECT_TRUE(Existe(rendu));
  BalayerRestes(dossiers, QDateTime::currentDateTime().addDays(31));
  EXPECT_FALSE(Existe(u"Classeurs/aBcDeF"_s));
  EXPECT_TRUE(Existe(pris));
  qputenv("TMPDIR", tmp);
}

// Killed in the middle of a writing over two bases: both are taken back before the file that says
// so goes, also the one in another folder.
TEST_F(Entretien, EcritureSurDeuxBasesInachevee) {
  for (const QString &nom : {u"un"_s, u"deux"_s}) {
    ASSERT_TRUE(QDir().mkdir(Chemin(nom)));
    Creer(nom + u"/Velmira.mdb"_s, {u"Albert"_s});
  }
  Poser(u"un/Velmira.mdb-mj0123AB9CD"_s,
        QFile::encodeName(Chemin(u"un/Velmira.mdb-journal"_s)) + '\0' +
            QFile::encodeName(Chemin(u"deux/Velmira.mdb-journal"_s)) + '\0');
  const pid_t enfant = ::fork();
  ASSERT_GE(enfant, 0);
  if (enfant == 0) {
    try {
      Base base;
      base.Ouvrir(Chemin(u"deux/Velmira.mdb"_s));
      Requete(base, u"PRAGMA cache_size=5"_s).Executer();
      Transaction transaction(base);
      for (int i = 0; i < 300; ++i) {
        Correspondant fantome;
        fantome.Commentaires = QString(1000, u'x');
        AjouterLigne(base, fantome);
      }
      ::kill(::getpid(), SIGKILL);
    } catch (...) {
    }
    ::_exit(1);
  }
  int etat = 0;
  ASSERT_EQ(::waitpid(enfant, &etat, 0), enfant);
  ASSERT_TRUE(Existe(u"deux/Velmira.mdb-journal"_s));
  const Dossiers dossiers{Chemin(u"un"_s), Chemin(u"un"_s), Chemin(u"un"_s), {}};
  BalayerRestes(dossiers, QDateTime::currentDateTime().addDays(2));
  EXPECT_FALSE(Existe(u"deux/Velmira.mdb-journal"_s));
  EXPECT_FALSE(Existe(u"un/Velmira.mdb-mj0123AB9CD"_s));
  EXPECT_EQ(NomsDe(u"deux/Velmira.mdb"_s), QStringList{u"Albert"_s});
}

}  // namespace
