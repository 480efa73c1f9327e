// The repair: what a damaged file gives back, and what is left alone.

#include "Outils.h"
#include "app/Brikel.h"
#include "storage/Base.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Reparation.h"
#include "storage/Requete.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QHash>
#include <QRandomGenerator>
#include <QSet>

#include <signal.h>

using namespace std::chrono_literals;

namespace {

const QDateTime kMaintenant = QDateTime(QDate(2026, 3, 1), QTime(12, 30, 5));
const QString kBase = u"Velmira.mdb"_s, kCopie = u"Velmira_2026-03-01_123005.mdb"_s;
constexpr qsizetype kPage = 4096;

bool Continuer(qsizetype, qsizetype) {
  return true;
}

/// Which rows lie on which pages, without reading the format: each row repeats a mark of its own,
/// "#A00123#", on every page that it touches.
QHash<QByteArray, QSet<qsizetype>> PagesDesMarques(const QByteArray &octets) {
  QHash<QByteArray, QSet<qsizetype>> pages;
  for (qsizetype i = octets.indexOf('#'); i >= 0; i = octets.indexOf('#', i + 1))
    if (i + 8 <= octets.size() && octets[i + 7] == '#' && octets[i + 1] >= 'A')
      pages[octets.mid(i, 8)].insert(i / kPage);
  return pages;
}

class Reparation : public DansUnDossier {
 protected:
  std::optional<BilanReparation> Reparer(const Avance &avance = Continuer) const {
    return ReparerBase(Chemin(kBase), kMaintenant, 150ms, avance);
  }

  /// Another program is in the middle of a writing until it is killed.
  pid_t Prendre() const {
    const pid_t enfant = ::fork();
    if (enfant == 0) {
      FichierNu fichier(Chemin(kBase));
      for (const QString &texte : {u"BEGIN"_s, u"UPDATE Ville SET Liens=''"_s})
        fichier.Executer(texte);
      ::pause();
      ::_exit(0);
    }
    while (!Existe(kBase + u"-journal"_s)) ::usleep(10000);
    return enfant;
  }

  /// Three tables of so many rows, some of them longer than a page; one in eleven has gone again.
  void Remplir(int lignes) const {
    CreerBase(kBase);
    FichierNu fichier(Chemin(kBase));
    const auto remplir = [&](QChar lettre, const QString &ajout) {
      fichier.Executer(
          u"WITH n(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM n WHERE i<%1), s AS (SELECT "
          "printf('#%2%05d#',i) m, replace(hex(zeroblob(CASE WHEN i%13=0 THEN i*37%1500 ELSE i%9 "
          "END)),'00',printf('#%2%05d#',i)) t FROM n) "_s.arg(lignes)
              .arg(lettre) +
          ajout);
    };
    fichier.Executer(u"BEGIN"_s);
    remplir(u'A',
            u"INSERT INTO Adresse (NomVelmira, Ville, Commentaires, OptionAdresse, DataProt) "
            "SELECT m, 'Lyon', t, 1, '' FROM s"_s);
    remplir(u'B', u"INSERT INTO Ville (CodePostal, Ville, Liens) SELECT '69001', m, t FROM s"_s);
    remplir(u'C', u"INSERT INTO Listecoal (Nom, DDN, Disponible) SELECT m, '', 1 FROM s"_s);
    fichier.Executer(u"DELETE FROM Adresse WHERE [Index]%11=0"_s);
    fichier.Executer(u"COMMIT"_s);
  }

  /// The rows, with all that they hold, by their marks.
  QHash<QByteArray, QString> Lignes(const QString &nom) const {
    QHash<QByteArray, QString> lignes;
    FichierNu fichier(Chemin(nom));
    for (const QString &requete :
         {u"SELECT NomVelmira, [Index], Ville, Commentaires, OptionAdresse FROM Adresse"_s,
          u"SELECT Ville, [Index], CodePostal, Liens FROM Ville"_s,
          u"SELECT Nom, ID, Disponible FROM Listecoal"_s})
      for (const QString &ligne : fichier.Executer(requete))
        lignes.insert(ligne.left(8).toLatin1(), ligne);
    return lignes;
  }

  /// Repairs copies of a base damaged in ways that the seed tells; of each at least 95 % of the
  /// rows whose pages are all as they were come back, with their keys and all that they held.
  void Abimer(int lignes, quint32 copies) {
    Remplir(lignes);
    const QByteArray saine = Octets(kBase);
    const auto avant = Lignes(kBase);
    const auto pages = PagesDesMarques(saine);
    for (quint32 graine = 1; graine <= copies; ++graine) {
      SCOPED_TRACE(graine);
      QRandomGenerator hasard(graine);
      const QByteArray abimee = Abimee(saine, hasard, graine % 4);
      Poser(kBase, abimee);
      QFile::remove(Chemin(kCopie));
      std::optional<BilanReparation> bilan;
      ASSERT_EQ(Echec([&] { bilan = Reparer(); }), QString());
      EXPECT_TRUE(Octets(kCopie) == abimee);
      const auto apres = Lignes(kBase);
      qsizetype intactes = 0, sauvees = 0;
      for (auto ligne = avant.cbegin(); ligne != avant.cend(); ++ligne) {
        const bool rendue = apres.value(ligne.key()) == ligne.value();
        const auto intacte = [&](qsizetype page) {
          return saine.mid(page * kPage, kPage) == abimee.mid(page * kPage, kPage);
        };
        if (!std::ranges::all_of(pages[ligne.key()], intacte)) continue;
        ++intactes;
        sauvees += rendue;
      }
      EXPECT_GE(sauvees * 100, intactes * 95) << sauvees << " of " << intactes;
      qsizetype gardees = 0;
      for (const BilanTable &table : bilan->tables) gardees += table.gardees;
      EXPECT_TRUE(gardees >= avant.size() || !bilan->Entier());
      Base base;
      EXPECT_EQ(Echec([&] { base.Ouvrir(Chemin(kBase)); }), QString());
      intactes_ += intactes, sauvees_ += sauvees;
    }
    RecordProperty("saved", std::to_string(sauvees_) + " of " + std::to_string(intactes_));
  }

  /// Kills the repair of a damaged base at random moments: the base at work is the old one or the
  /// new one, and the next repair gives the same rows.
  void Tuer(int lignes, int fois) {
    Remplir(lignes);
    QByteArray abimee = Octets(kBase);
    abimee.replace(abimee.size() / kPage / 2 * kPage, kPage, QByteArray(kPage, '\0'));
    Poser(kBase, abimee);
    QElapsedTimer duree;
    duree.start();
    ASSERT_TRUE(Reparer());
    const auto micros = static_cast<quint32>(duree.nsecsElapsed() / 1000);
    const auto justes = Lignes(kBase);
    for (int n = 0, tuees = 0; n < fois || tuees == 0; ++n) {
      for (const QString &nom : QDir(Chemin()).entryList(QDir::Files | QDir::Hidden))
        QFile::remove(Chemin(nom));
      Poser(kBase, abimee);
      const pid_t enfant = ::fork();
      if (enfant == 0) ::_exit(Reparer() ? 0 : 1);
      ::usleep(QRandomGenerator::global()->bounded(micros));
      ::kill(enfant, SIGKILL);
      int etat = 0;
      ASSERT_EQ(::waitpid(enfant, &etat, 0), enfant);
      tuees += WIFSIGNALED(etat);
      EXPECT_TRUE(Octets(kBase) == abimee || Sql(kBase, u"PRAGMA integrity_check"_s) == u"ok"_s);
      EXPECT_TRUE(Reparer() && Lignes(kBase) == justes);
    }
  }

 private:
  static QByteArray Abimee(QByteArray octets, QRandomGenerator &hasard, quint32 maniere) {
    const auto au = [&](qsizetype borne) { return qsizetype{hasard.bounded(int(borne))}; };
    if (maniere == 0 || maniere == 3)
      for (qsizetype n = 1 + au(20); n > 0; --n)
        for (qsizetype i = au(octets.size()), fin = std::min(octets.size(), i + 1 + au(64));
             i < fin; ++i)
          octets[i] = static_cast<char>(hasard.bounded(256));
    if (maniere == 1 || maniere == 3)
      for (qsizetype n = 1 + au(5); n > 0; --n)
        octets.replace(au(octets.size() / kPage) * kPage, kPage, QByteArray(kPage, '\0'));
    if (maniere == 2) octets.truncate(octets.size() / 2 + au(octets.size() / 2));
    return octets;
  }

  qsizetype intactes_ = 0, sauvees_ = 0;
};

// A whole one keeps its rows, their keys and the keys that were given once, in less room.
TEST_F(Reparation, Saine) {
  Remplir(300);
  const auto avant = Lignes(kBase);
  Sql(kBase, u"DELETE FROM Ville WHERE [Index]>100"_s);
  const QByteArray octets = Octets(kBase);
  QFile::setPermissions(Chemin(kBase), QFile::ReadOwner | QFile::WriteOwner);
  [[maybe_unused]] const int cedee = ::chown(qPrintable(Chemin(kBase)), 65533, 65534);  // by root
  const uint proprietaire = QFileInfo(Chemin(kBase)).ownerId();
  Base autre;  // at rest it holds no lock
  autre.Ouvrir(Chemin(kBase));
  const qint64 changements = autre.Changements();
  const auto bilan = Reparer();
  EXPECT_TRUE(Echec([&] {
                Requete(autre, u"DELETE FROM Ville"_s).Executer();
              }).contains(u"déplacé, effacé ou remplacé"));
  EXPECT_NE(autre.Changements(), changements);
  ASSERT_TRUE(bilan && bilan->Entier() && !bilan->endommagee);
  EXPECT_EQ(bilan->tables[2].gardees, 100);
  EXPECT_LT(bilan->apres, bilan->avant);
  EXPECT_TRUE(bilan->ancienne == Chemin(kCopie) && Octets(kCopie) == octets);
  EXPECT_EQ(QFile::permissions(Chemin(kCopie)), QFile::permissions(Chemin(kBase)));
  for (const QString &nom : {kBase, kCopie})
    EXPECT_EQ(QFileInfo(Chemin(nom)).ownerId(), proprietaire);
  EXPECT_EQ(Sql(kBase, u"SELECT seq FROM sqlite_sequence WHERE name='Ville'"_s), u"300"_s);
  EXPECT_EQ(Lignes(kBase).value("#A00299#"), avant.value("#A00299#"));
  EXPECT_TRUE(TexteBilan(*bilan).contains(u"Villes et codes postaux : 100 lignes gardées sur 100"));
  EXPECT_TRUE(Reparer() && Existe(kCopie.chopped(4) + u"_2.mdb"_s)) << "never over another copy";
  {
    Transaction ecriture(autre);  // into the new file
    Requete(autre, u"DELETE FROM Ville WHERE [Index]>99"_s).Executer();
    ecriture.Valider();
  }
  EXPECT_EQ(Sql(kBase, u"SELECT COUNT(*) FROM Ville"_s), u"99"_s);
}

TEST_F(Reparation, Abimee) {
  Abimer(300, 24);
}

TEST_F(Reparation, DISABLED_TroisCentsCopies) {
  Abimer(10000, 300);
}

TEST_F(Reparation, Tuee) {
  Tuer(300, 12);
}

TEST_F(Reparation, DISABLED_TueeTroisCentsFois) {
  Tuer(10000, 300);
}

// A zeroed page is told with how many rows it may have held; a broken chain leaves its beginning.
TEST_F(Reparation, CeQuiManque) {
  Remplir(300);
  Sql(kBase, u"INSERT INTO ListeAlerte (Nom, Alerte, Date) VALUES (150, 9, '01/02/2026')"_s);
  QByteArray octets = Octets(kBase);
  const auto pages = PagesDesMarques(octets);
  const qsizetype page = *pages["#C00150#"].cbegin();
  octets.replace(page * kPage, kPage, QByteArray(kPage, '\0'));
  QList<qsizetype> chaine = pages["#A00299#"].values();  // 299 = 13 * 23
  std::ranges::sort(chaine);
  ASSERT_GT(chaine.size(), 1);
  octets.replace(chaine.constLast() * kPage, kPage, QByteArray(kPage, '\0'));
  Poser(kBase, octets);
  const auto bilan = Reparer();
  ASSERT_TRUE(bilan && bilan->endommagee && !bilan->Entier());
  EXPECT_EQ(bilan->tables[4].gardees + bilan->tables[4].perdues, 300);
  EXPECT_GT(bilan->tables[4].perdues, 0);
  // An event without its person and its type is still there for its user.
  EXPECT_EQ(Sql(kBase, u"SELECT Nom FROM Listecoal WHERE ID=150"_s), u"Personne 150"_s);
  EXPECT_EQ(Sql(kBase, u"SELECT Type_alerte FROM Alerte"_s), u"Évènement 9"_s);
  EXPECT_TRUE(TexteBilan(*bilan).contains(u"ont perdu leur nom"));
  EXPECT_GE(bilan->tables[0].incompletes, 1);
  EXPECT_EQ(bilan->tables[0].perdues, 0);
  EXPECT_TRUE(Sql(kBase, u"SELECT Commentaires FROM Adresse WHERE [Index]=299"_s)
                  .startsWith(u"#A00299##A00299#"_s));

  // Where only its directory is damaged the rows of a page are found.
  Remplir(300);
  octets = Octets(kBase);
  octets.replace(page * kPage, 40, QByteArray(40, '\xFF'));
  Poser(kBase, octets);
  EXPECT_EQ(Reparer()->tables[4].gardees, 300);

  // Without the page that names the tables their rows are told by what they look like.
  Remplir(300);
  const auto avant = Lignes(kBase);
  Poser(kBase, QByteArray(kPage, '\0') + Octets(kBase).mid(kPage));
  EXPECT_TRUE(Reparer() && Lignes(kBase) == avant);
}

// What the command line asks for, and how the program ends.
TEST_F(Reparation, SansFenetre) {
  Cas(R"(
    --version           | 0 | Brikel
    --sans-fenetre x -h | 0 | Usage
    --sans-fenetre      | 2 | suivi du nom
    --sans-fenetre a b  | 2 | suivi du nom
    --autre             | 2 | inconnue
  )",
      [](Rangee c) {
        const auto demande = LireDemandeBrikel(c[0].split(u' '));
        ASSERT_TRUE(demande.reponse && demande.base.isEmpty());
        EXPECT_EQ(QString::number(demande.reponse->statut), c[1]);
        EXPECT_TRUE(demande.reponse->texte.contains(c[2]));
      });
  EXPECT_EQ(LireDemandeBrikel({u"--sans-fenetre"_s, u"a b"_s}).base, u"a b"_s);
  EXPECT_TRUE(!LireDemandeBrikel({}).reponse && LireDemandeBrikel({}).base.isEmpty());
  EXPECT_TRUE(LireDemandeBrikel({u"--demander"_s}).demander && !LireDemandeBrikel({}).demander);
  const auto reparer = [this] {
    QFile::remove(Chemin(kCopie));
    return ReparerSansFenetre(Chemin(kBase), kMaintenant, 0ms).statut;
  };
  Remplir(300);
  const QByteArray saine = Octets(kBase);
  EXPECT_EQ(reparer(), 0);
  Poser(kBase, saine.first(saine.size() - 3 * kPage));
  EXPECT_EQ(reparer(), 1);
  Poser(kBase, {});
  EXPECT_EQ(reparer(), 2);
  // The base is the one of Velmira.
  EXPECT_TRUE(Echec([this] { DossiersDeVelmira(Chemin()); }).contains(u"pas encore"_s));
  EcrireCheminData(Chemin(), Chemin(u"DataVelmira"_s));
  EXPECT_EQ(DossiersDeVelmira(Chemin()).Base(), Chemin(u"DataVelmira/Velmira.mdb"_s));
}

// What is not ours to repair, or cannot be, is as it was, and no copy of it is left.
TEST_F(Reparation, Refusee) {
  Cas(R"(
    étrangère | pas une base de données de Velmira
    récente   | version plus récente
    ancienne  | Lancez Velmira, qui la mettra à jour
    jet       | Lancez Velmira, qui la mettra à jour
    prise     | le programme velmira
    vide      | rien ne peut plus y être lu
    bruit     | rien ne peut plus y être lu
    absente   | introuvable
  )",
      [this](Rangee c) {
        Remplir(20);
        if (c[0] == u"étrangère"_s)
          QFile::remove(Chemin(kBase)), Sql(kBase, u"CREATE TABLE Signets (a, b, c)"_s);
        if (c[0] == u"récente"_s) Sql(kBase, u"PRAGMA user_version=2"_s);
        if (c[0] == u"ancienne"_s) CreerBaseAncienne(Chemin(kBase), {{u"ListeAlerte"_s, 6}});
        if (c[0] == u"jet"_s) Poser(kBase, "....Standard Jet DB....");
        if (c[0] == u"vide"_s) Poser(kBase, {});
        if (c[0] == u"bruit"_s) {
          QByteArray bruit(20 * kPage, '\xFF');
          for (int i = 0; i < 20; ++i) bruit[i * kPage] = '\x0D';
          Poser(kBase, bruit);
        }
        if (c[0] == u"absente"_s) QFile::remove(Chemin(kBase));
        const QByteArray avant = Octets(kBase);
        const pid_t autre = c[0] == u"prise"_s ? Prendre() : 0;
        const QString mots = Echec([this] { Reparer(); });
        if (autre > 0) ::kill(autre, SIGKILL), ::waitpid(autre, nullptr, 0);
        EXPECT_TRUE(mots.contains(c[1])) << mots.toStdString();
        EXPECT_TRUE(Octets(kBase) == avant);
        EXPECT_FALSE(Existe(kCopie));
      });
}

// Behind a link it is the file itself that is repaired; beside it lie its copy, and what its
// journal held that the engine had no use for.
TEST_F(Reparation, DerriereUnLien) {
  Remplir(300);
  TuerUnEcrivain(kBase);
  const QString lien = Chemin(u"ailleurs/Base"_s);
  QDir().mkpath(Chemin(u"ailleurs"_s));
  ASSERT_TRUE(QFile::link(Chemin(kBase), lien));
  const auto reparer = [&] { return ReparerBase(lien, kMaintenant, 0ms, Continuer); };
  auto bilan = reparer();
  EXPECT_TRUE(bilan && bilan->Entier() && bilan->ancienne == Chemin(kCopie));
  EXPECT_EQ(Sql(kBase, u"SELECT count(*) FROM Adresse WHERE NomVelmira='perdu'"_s), u"0"_s);
  QFile::remove(Chemin(kCopie));
  Poser(kBase + u"-journal"_s, QByteArray(600, '\0'));
  EXPECT_TRUE(reparer() && QFileInfo(lien).isSymLink());
  EXPECT_EQ(QDir(Chemin()).entryList(QDir::Files),
            QStringList({kBase, kCopie, kCopie + u".journal"_s}));
  EXPECT_EQ(Octets(kCopie + u".journal"_s), QByteArray(600, '\0'));
}

// Where there is no room, or no right to the folder, it says so; the base is alone and as it was.
TEST_F(Reparation, SansPlaceNiDroit) {
  Remplir(300);
  const QByteArray abimee = Octets(kBase).replace(3 * kPage, kPage, QByteArray(kPage, '\0'));
  Poser(kBase, abimee);
  const auto intacte = [&] {
    EXPECT_EQ(QDir(Chemin()).entryList(QDir::Files | QDir::Hidden), QStringList(kBase));
    EXPECT_TRUE(Octets(kBase) == abimee);
  };
  for (const qsizetype depuis : {0, 20, 70}) {
    SCOPED_TRACE(depuis);
    std::optional<DisquePlein> plein;
    const QString mots = Echec([&] {
      Reparer([&](qsizetype fait, qsizetype) {
        if (fait >= depuis && !plein) plein.emplace(2 * kPage);
        return true;
      });
    });
    plein.reset();
    EXPECT_TRUE(mots.contains(depuis == 0 ? kCopie + u" » n'a pas pu être écrit"_s
                                          : kBase + u" » n'a pas pu être réparée"_s))
        << mots.toStdString();
    intacte();
  }
  QFile::setPermissions(Chemin(kBase), QFile::Permissions(0x6666));
  QFile::setPermissions(Chemin(), QFile::Permissions(0x5555));
  const pid_t enfant = ::fork();
  if (enfant == 0) {
    if (::geteuid() == 0 && ::seteuid(65534) != 0) ::_exit(3);
    const auto reponse = ReparerSansFenetre(Chemin(kBase), kMaintenant, 0ms);
    ::_exit(reponse.texte.contains(kCopie) && reponse.texte.contains(u"droit"_s) ? reponse.statut
                                                                                 : 4);
  }
  int etat = 0;
  ::waitpid(enfant, &etat, 0);
  QFile::setPermissions(Chemin(), QFile::Permissions(0x7700));
  EXPECT_EQ(WEXITSTATUS(etat), kRienFait);
  intacte();
}

// Stopped at each word of progress in turn, it leaves the old base; a killed writing is taken back.
TEST_F(Reparation, Arretee) {
  Remplir(600);
  TuerUnEcrivain(kBase);
  int mots = 0;
  for (int limite = 0; mots == limite; ++limite) {
    mots = 0;
    const QByteArray avant = Octets(kBase);
    const auto bilan = Reparer([&](qsizetype fait, qsizetype total) {
      EXPECT_LE(fait, total);
      return mots == limite ? false : (++mots, true);
    });
    EXPECT_TRUE(bilan || (!Existe(kCopie) && (limite == 0 || Octets(kBase) == avant)));
    ASSERT_LT(limite, 50);
    if (bilan) break;
  }
  EXPECT_FALSE(Existe(kBase + u"-journal"_s));
  EXPECT_EQ(Sql(kBase, u"SELECT count(*) FROM Adresse WHERE NomVelmira='perdu'"_s), u"0"_s);
}

}  // namespace
