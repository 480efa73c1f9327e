// The upgrade killed before each step that settles what is on the disk: the old database is always
// whole under one of its names, and the next start ends with every row in place exactly once. The
// repair killed in the same way.

#include "Etapes.h"
#include "Reel.h"
#include "app/Demarrage.h"
#include "commun/BaseAncienne.h"
#include "commun/BoitesMuettes.h"
#include "storage/Base.h"
#include "storage/Reparation.h"

#include <filesystem>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

/// In a folder of its own, with what is delivered and the old database in `modele`, and a copy of
/// that to work with in `monde`.
class MiseAJour : public testing::Test {
 protected:
  MiseAJour() {
    QDir::setCurrent(dossier_.path());
    CreerDossier(u"modele/app"_s);
    const QByteArray chemin = '"' + app_.chopped(4).toLatin1() + "\"\r\n";
    for (const QString &reglage : {u"CheminData.cfg"_s, u"Cheminbase.cfg"_s})
      RemplacerFichier(u"modele/app/"_s + reglage, chemin);
    RemplacerFichier(u"modele/app/Alarme.ini"_s, "7,1,0,1,2\r\n");
    RemplacerFichier(u"modele/Ancien_Velmira.mdb"_s, "plus ancien");
    CreerBaseVide(u"modele/Velmira_base.mdb"_s);
    CreerBaseAncienne(u"modele/Velmira.mdb"_s, {{u"ListeAlerte"_s, 6}});
    FichierNu fichier(u"modele/Velmira.mdb"_s);
    fichier.Executer(
        u"CREATE TEMP VIEW s AS WITH n(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM n "
        "WHERE i<220) SELECT i, hex(zeroblob(i*97%7000)) AS notes FROM n"_s);
    fichier.Executer(u"INSERT INTO Adresse (Tel, Commentaires) SELECT * FROM s"_s);  // 1.5 MB
    fichier.Executer(u"INSERT INTO ListeAlerte (Nom, Alerte) SELECT i, 1 FROM s"_s);
    ancienne_ = LireFichier(u"modele/Velmira.mdb"_s);
  }

  static void Poser() {
    QDir(u"monde"_s).removeRecursively();
    std::filesystem::copy("modele", "monde", std::filesystem::copy_options::recursive);
  }
  /// Gives how many steps the start has taken, -1 where it was killed before this one.
  int Demarrer(int avant = 0) const {
    const pid_t enfant = ::fork();
    if (enfant == 0) {
      etapes = {.mort = avant};
      BoitesMuettes boites;
      Dossiers dossiers;
      dossiers.AppPath = app_;
      Demarrage(boites, dossiers, {[](const QString &) {}}).Executer();
      if (boites.vues.isEmpty()) ::_exit(etapes.faites);  // no error
      ::raise(SIGKILL);
    }
    int etat = 0;
    EXPECT_EQ(::waitpid(enfant, &etat, 0), enfant);
    EXPECT_TRUE(avant == 0 || LireFichier(u"monde/Velmira.mdb"_s) == ancienne_ ||
                LireFichier(u"monde/Ancien_Velmira.mdb"_s) == ancienne_);
    return WIFEXITED(etat) ? WEXITSTATUS(etat) : -1;
  }
  /// Every row of the database, keys included, where the upgrade has come to its end.
  static QStringList Lignes() {
    EXPECT_EQ(QDir(u"monde"_s).entryList(QDir::Files),
              QStringList({u"Ancien_Velmira.mdb"_s, u"Velmira.mdb"_s}));
    EXPECT_EQ(LireFichier(u"monde/app/Alarme.ini"_s), QByteArray("1,0,2\r\n"));
    FichierNu fichier(u"monde/Velmira.mdb"_s);
    QStringList lignes;
    PourChaqueTable(
        [&](auto table) { lignes += fichier.Executer(u"SELECT * FROM "_s + Nom(table)); });
    return lignes;
  }

  void TuerAChaqueEtape(qsizetype lignes) const {
    Poser();
    const int etapes = Demarrer();
    const QStringList juste = Lignes();
    EXPECT_EQ(juste.size(), lignes);
    for (int i = 1; i <= etapes && !HasFailure(); ++i) {
      SCOPED_TRACE(i);
      Poser();
      EXPECT_EQ(Demarrer(i), -1);
      Demarrer(i * 7 % etapes + 1);
      if (i % 2 == 0)  // the next version comes
        QFile::copy(u"modele/Velmira_base.mdb"_s, u"monde/app/Velmira_base.mdb"_s);
      EXPECT_GE(Demarrer(), 0);
      EXPECT_TRUE(Lignes() == juste);
    }
  }

  const QTemporaryDir dossier_;
  const QString app_ = dossier_.filePath(u"monde/app"_s);
  std::optional<QByteArray> ancienne_;
};

TEST_F(MiseAJour, TueeAChaqueEtape) {
  TuerAChaqueEtape(440);
}

// In the Jet format, without a delivered base.
TEST_F(MiseAJour, JetTueeAChaqueEtape) {
  if (!qEnvironmentVariableIsSet("VELMIRA_JET")) GTEST_SKIP() << "VELMIRA_JET names no folder";
  ancienne_ = LireFichier(qEnvironmentVariable("VELMIRA_JET") + u"/petit.mdb"_s);
  RemplacerFichier(u"modele/Velmira.mdb"_s, ancienne_.value());
  QFile::remove(u"modele/Velmira_base.mdb"_s);
  TuerAChaqueEtape(53);
}

// So is the first installation, and its base has the usual types of events whenever it is there.
TEST_F(MiseAJour, PremiereBaseTueeAChaqueEtape) {
  for (const QString &nom : {u"Velmira.mdb"_s, u"Ancien_Velmira.mdb"_s})
    EffacerFichier(u"modele/"_s + nom);
  RenommerFichier(u"modele/Velmira_base.mdb"_s, u"modele/app/Velmira_base.mdb"_s);
  ancienne_.reset();
  Poser();
  for (int i = Demarrer(); i >= 1; --i) {
    SCOPED_TRACE(i);
    Poser();
    EXPECT_EQ(Demarrer(i), -1);
    EXPECT_GE(Demarrer(), 0);
    FichierNu base(u"monde/Velmira.mdb"_s);
    EXPECT_EQ(base.Executer(u"SELECT Type_alerte FROM Alerte"_s).size(), 6);
  }
}

// The repair of a damaged base: the one at work is the old one or the new one, whole.
TEST_F(MiseAJour, ReparationTueeAChaqueEtape) {
  const QString base = u"monde/Velmira.mdb"_s;
  const auto reparer = [&](int avant) {
    const pid_t enfant = ::fork();
    if (enfant == 0) {
      etapes = {.mort = avant};
      const auto continuer = [](qsizetype, qsizetype) { return true; };
      ReparerBase(base, QDateTime(QDate(2026, 3, 1), QTime(12, 0)), std::chrono::seconds(1),
                  continuer);
      ::_exit(etapes.faites);
    }
    int etat = 0;
    EXPECT_EQ(::waitpid(enfant, &etat, 0), enfant);
    return WIFEXITED(etat) ? WEXITSTATUS(etat) : -1;
  };
  FichierNu(u"modele/Velmira.mdb"_s)
      .Executer(u"PRAGMA application_id=%1"_s.arg(Base::kApplication));
  QByteArray abimee = LireFichier(u"modele/Velmira.mdb"_s).value();
  abimee.replace(abimee.size() / 8192 * 4096, 4096, QByteArray(4096, '\0'));
  const auto poser = [&] {
    Poser();
    RemplacerFichier(base, abimee);
  };
  poser();
  const int etapes = reparer(0);
  const auto reparee = LireFichier(base);
  ASSERT_GT(etapes, 3);
  EXPECT_TRUE(reparee != abimee);
  for (int i = 1; i <= etapes && !HasFailure(); ++i) {
    SCOPED_TRACE(i);
    poser();
    EXPECT_EQ(reparer(i), -1);
    const auto octets = LireFichier(base);
    EXPECT_TRUE(octets == abimee || octets == reparee);
    EXPECT_GT(reparer(0), 0);
    EXPECT_EQ(LireFichier(base).value().size(), reparee.value().size());
  }
}

}  // namespace
