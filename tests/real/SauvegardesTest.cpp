// A copy of the day and a restoration, killed before each step and each writing, and on a disk that
// is full from there on: the base at work is as it was or restored, a copy is complete or absent.

#include "Etapes.h"
#include "Reel.h"
#include "commun/BaseAncienne.h"
#include "storage/Restauration.h"
#include "storage/Sauvegardes.h"

#include <filesystem>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

class Sauvegardes : public testing::Test {
 protected:
  /// An older copy, and the base, of which a third of the rows has another content, a tenth has
  /// gone and a tenth has come.
  Sauvegardes() {
    CreerDossier(modele_ + u"/Sauvegardes"_s);
    CreerBaseVide(modele_ + u"/Velmira.mdb"_s);
    Remplir();
    avant_ = Lignes(modele_ + u"/Velmira.mdb"_s);
    apres_ = Lignes(modele_ + kAncienne);
  }

  void Remplir() const {
    FichierNu fichier(modele_ + u"/Velmira.mdb"_s);
    const QString lignes =
        u"INSERT INTO Adresse (NomVelmira, Commentaires, DataProt) WITH n(i) AS (VALUES(1) UNION "
        "ALL SELECT i+1 FROM n WHERE i<%1) SELECT i, hex(zeroblob(i*97%2000)), '' FROM n"_s;
    fichier.Executer(lignes.arg(180));
    fichier.Executer(u"INSERT INTO Ville (Ville) VALUES ('Nantes')"_s);
    fichier.Executer(u"VACUUM INTO '%1'"_s.arg(modele_ + kAncienne));
    fichier.Executer(u"UPDATE Adresse SET Tel=NomVelmira WHERE [Index]%3=0"_s);
    fichier.Executer(u"DELETE FROM Adresse WHERE [Index]%10=0"_s);
    fichier.Executer(lignes.arg(12));
    fichier.Executer(u"DELETE FROM Ville"_s);
  }

  void Poser() const {
    QDir(monde_).removeRecursively();
    std::filesystem::copy(modele_.toStdString(), monde_.toStdString(),
                          std::filesystem::copy_options::recursive);
  }

  static QStringList Lignes(const QString &base) {
    FichierNu fichier(base);
    EXPECT_EQ(fichier.Executer(u"PRAGMA integrity_check"_s), QStringList{u"ok"_s});
    QStringList lignes;
    PourChaqueTable(
        [&](auto table) { lignes += fichier.Executer(u"SELECT * FROM "_s + Nom(table)); });
    return lignes;
  }

  /// In a process of its own; gives its steps, 0 where it was killed.
  int Travailler(Etapes voulues) const {
    void *partage =
        ::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    const pid_t enfant = ::fork();
    if (enfant == 0) {
      etapes = voulues;
      const QDateTime maintenant(QDate(2026, 6, 15), QTime(10, 0));
      const LieuxSauvegardes lieux{monde_ + u"/Velmira.mdb"_s, {}};
      Ignorer([&] { Sauvegarder(lieux, maintenant, MotifSauvegarde::Jour); });
      Ignorer([&] {
        Base base;
        base.Ouvrir(lieux.base);
        Sauvegarder(lieux, maintenant, MotifSauvegarde::Restauration);
        RestaurerTout(base, monde_ + kAncienne, [](qsizetype, qsizetype) { return true; });
      });
      *static_cast<int *>(partage) = etapes.faites;
      ::_exit(0);
    }
    EXPECT_EQ(::waitpid(enfant, nullptr, 0), enfant);
    const int faites = *static_cast<int *>(partage);
    ::munmap(partage, sizeof(int));
    return faites;
  }

  void Verifier() const {
    const QStringList lignes = Lignes(monde_ + u"/Velmira.mdb"_s);
    EXPECT_TRUE(lignes == avant_ || lignes == apres_);
    const auto sauvegardes = ListerSauvegardes(monde_ + u"/Sauvegardes"_s);
    EXPECT_TRUE(lignes == avant_ || sauvegardes.size() >= 2) << "the base has had its copy";
    for (const Sauvegarde &sauvegarde : sauvegardes)
      EXPECT_TRUE(Lignes(sauvegarde.chemin) ==
                  (sauvegarde.chemin.endsWith(kAncienne) ? apres_ : avant_));
  }

  /// Before `nombre` steps spread over all of them, and with as many full disks.
  void Eprouver(int nombre) const {
    Poser();
    const int toutes = Travailler({.ecritures = true});
    Verifier();
    EXPECT_TRUE(Lignes(monde_ + u"/Velmira.mdb"_s) == apres_);
    ASSERT_GT(toutes, 300);
    for (int i = 0; i < nombre && !HasFailure(); ++i) {
      const int etape = 1 + static_cast<int>(qint64{i} * toutes / nombre);
      for (const Etapes &voulues :
           {Etapes{.mort = etape, .ecritures = true}, Etapes{.plein = etape, .ecritures = true}}) {
        SCOPED_TRACE(testing::Message() << voulues.mort << ' ' << voulues.plein << '/' << toutes);
        Poser();
        EXPECT_EQ(Travailler(voulues) == 0, voulues.mort != 0);
        Verifier();
      }
    }
  }

  inline static const QString kAncienne = u"/Sauvegardes/Velmira_2026-06-01.mdb"_s;
  const QTemporaryDir dossier_;
  const QString modele_ = dossier_.filePath(u"modele"_s), monde_ = dossier_.filePath(u"monde"_s);
  QStringList avant_, apres_;
};

TEST_F(Sauvegardes, CentFois) {
  Eprouver(50);
}

TEST_F(Sauvegardes, DISABLED_DeuxMilleFois) {
  Eprouver(1000);
}

}  // namespace
