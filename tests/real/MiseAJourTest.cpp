// The upgrade killed before each step that settles what is on the disk: the old database is always
// whole under one of its names, and the next start ends with every row in place exactly once.

#include "Reel.h"
#include "app/Demarrage.h"
#include "commun/BaseAncienne.h"
#include "commun/BoitesMuettes.h"

#include <signal.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

int etape = 0, derniere = 0;  // steps counted from 1; the program is killed before the last one

template <typename... Arguments>
int Appeler(long numero, Arguments... arguments) {
  if (++etape == derniere) ::kill(::getpid(), SIGKILL);
  return static_cast<int>(::syscall(numero, arguments...));
}

}  // namespace

// They stand before the system's own, for the engine too. What is killed is a program: nothing has
// to be flushed.
extern "C" {
int fsync(int) {
  return Appeler(SYS_getpid), 0;
}
int fdatasync(int) {
  return Appeler(SYS_getpid), 0;
}
int unlink(const char *nom) noexcept {
  return Appeler(SYS_unlink, nom);
}
int rename(const char *de, const char *vers) noexcept {
  return Appeler(SYS_rename, de, vers);
}
int renameat2(int ici, const char *de, int la, const char *vers, unsigned options) noexcept {
  return Appeler(SYS_renameat2, ici, de, la, vers, options);
}
}

namespace {

const QString kBase = u"Velmira.mdb"_s, kAncienne = u"Ancien_Velmira.mdb"_s,
              kLivree = u"Velmira_base.mdb"_s;

class MiseAJour : public testing::Test {
 protected:
  MiseAJour() {
    CreerDossier(Modele(u"app"_s));
    const QByteArray chemin = '"' + Monde({}).chopped(1).toLatin1() + "\"\r\n";
    for (const QString &reglage : {u"CheminData.cfg"_s, u"Cheminbase.cfg"_s})
      RemplacerFichier(Modele(u"app/"_s + reglage), chemin);
    RemplacerFichier(Modele(u"app/Alarme.ini"_s), "7,1,0,1,2\r\n");
    RemplacerFichier(Modele(kAncienne), "plus ancien");
    CreerBaseVide(Modele(kLivree));
    CreerBaseAncienne(Modele(kBase), {{u"ListeAlerte"_s, 6}});
    FichierNu fichier(Modele(kBase));
    for (const char *lignes :
         {"Adresse (NomVelmira, Categories, Tel, Commentaires) SELECT 'Durand '||i, 'A', "
          "printf('02.40.%06d', i), hex(zeroblob(i*97%7000))",  // more than the engine's memory
          "Listecoal (Nom, Disponible) SELECT 'DURAND '||(i*9), 1",
          "ListeAlerte (Nom, Alerte) SELECT i, 1"})
      fichier.Executer(
          u"WITH s(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM s WHERE i<220) "
          "INSERT INTO "_s +
          QLatin1String(lignes) + u" FROM s"_s);
  }

  QString Modele(const QString &nom) const { return dossier_.filePath(u"modele/"_s + nom); }
  QString Monde(const QString &nom) const { return dossier_.filePath(u"monde/"_s + nom); }
  void Poser() const {
    QDir(Monde({})).removeRecursively();
    CreerDossier(Monde(u"app"_s));
    for (const QString &dossier : {u""_s, u"app/"_s})
      for (const QString &nom : QDir(Modele(dossier)).entryList(QDir::Files))
        ASSERT_TRUE(QFile::copy(Modele(dossier + nom), Monde(dossier + nom)));
  }

  void Demarrer() const {
    BoitesMuettes boites;
    Dossiers dossiers;
    dossiers.AppPath = Monde(u"app"_s);
    etape = 0;
    Demarrage(boites, dossiers, {[](const QString &) {}}).Executer();
    EXPECT_EQ(boites.vues.filter(u"erreur"_s), QStringList());
  }
  /// Gives false when it has ended before.
  bool DemarrerEtTuer(int avant) const {
    const pid_t enfant = ::fork();
    if (enfant == 0) {
      derniere = avant;
      Demarrer();
      ::_exit(0);
    }
    int etat = 0;
    EXPECT_EQ(::waitpid(enfant, &etat, 0), enfant);
    const bool finie = !QFile::exists(Monde(kLivree));
    const QString nom = finie || !QFile::exists(Monde(kBase)) ? kAncienne : kBase;
    EXPECT_TRUE(LireFichier(Monde(nom)) == LireFichier(Modele(kBase))) << qPrintable(nom);
    return WIFSIGNALED(etat);
  }

  /// As after an upgrade that nothing has disturbed, keys included.
  void VerifierFin() const {
    EXPECT_EQ(QDir(Monde({})).entryList(QDir::Files), QStringList({kAncienne, kBase}));
    EXPECT_EQ(LireFichier(Monde(u"app/Alarme.ini"_s)), QByteArray("1,0,2\r\n"));
    FichierNu fichier(Monde(kBase));
    fichier.Executer(u"ATTACH '%1' AS juste"_s.arg(dossier_.filePath(u"juste.mdb"_s)));
    const QString moins = u"SELECT * FROM %1.%3 EXCEPT SELECT * FROM %2.%3"_s;
    PourChaqueTable([&](auto table) {
      for (const QString &ordre : {moins.arg(u"main", u"juste"), moins.arg(u"juste", u"main")})
        EXPECT_EQ(fichier.Executer(ordre.arg(Nom(table))), QStringList());
    });
  }

  QTemporaryDir dossier_;
};

TEST_F(MiseAJour, TueeAChaqueEtape) {
  Poser();
  Demarrer();
  const int etapes = etape;
  ASSERT_TRUE(QFile::copy(Monde(kBase), dossier_.filePath(u"juste.mdb"_s)));
  EXPECT_EQ(FichierNu(Monde(kBase))
                .Executer(u"SELECT count(*), sum(AlerteActive), min(Categories), max(Tel), "
                          "sum(NomVelmira = 'Durand ' || a.rowid), min(Delai), sum(Actif) "
                          "FROM Adresse a, ListeAlerte e ON a.rowid = e.rowid"_s),
            QStringList{u"220|24|*A*|02 40 00 02 20|220|7|220"_s});
  VerifierFin();

  for (int i = 0; i < 2 * etapes && !HasFailure(); ++i) {
    SCOPED_TRACE(i / 2 + 1);
    Poser();
    EXPECT_TRUE(DemarrerEtTuer(i / 2 + 1));
    DemarrerEtTuer(i * 7 % etapes + 1);
    if (i % 2 == 1) QFile::copy(Modele(kLivree), Monde(u"app/"_s + kLivree));  // the next version
    Demarrer();
    VerifierFin();
  }
}

}  // namespace
