// The database file: what is opened, what is refused, what survives.

#include "Outils.h"
#include "storage/Base.h"
#include "storage/Conflits.h"
#include "storage/Moteur.h"
#include "storage/Requete.h"
#include "storage/Schema.h"
#include "storage/Tables.h"

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>

#include <atomic>
#include <chrono>
#include <functional>
#include <optional>
#include <random>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

class BaseTest : public DansUnDossier {
 protected:
  const QString mdb = u"Velmira.mdb"_s;

  QString CheminMdb() const { return Chemin(mdb); }

  /// Statements on the bare file, as another program would run them.
  void Sql(const QString &nom, const QStringList &textes) const {
    {
      auto connexion = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"autre"_s);
      connexion.setDatabaseName(Chemin(nom));
      ASSERT_TRUE(connexion.open());
      for (const QString &texte : textes) {
        QSqlQuery requete(connexion);
        ASSERT_TRUE(requete.exec(texte))
            << texte.toStdString() << ": " << requete.lastError().text().toStdString();
      }
    }
    QSqlDatabase::removeDatabase(u"autre"_s);
  }

  void Creer(int lignes) const {
    CreerBaseVide(CheminMdb());
    Base base;
    base.Ouvrir(CheminMdb());
    Transaction transaction(base);
    for (int i = 0; i < lignes; ++i) {
      Correspondant c;
      c.NomVelmira = u"Durand %1"_s.arg(i);
      c.Categories = u"*Amis %1*"_s.arg(i % 40);
      c.Commentaires = QString(i % 300, u'n');
      AjouterLigne(base, c);
    }
    transaction.Valider();
  }
  void Ouvrir(int lignes) {
    Creer(lignes);
    base.Ouvrir(CheminMdb());
  }

  Base base;
};

QList<Cle> Cles(Base &base) {
  QList<Cle> cles;
  TableAdresse(base).PourChaque([&](EntreeListe &&entree) { cles.append(entree.Index); });
  return cles;
}

/// What a step fails by; nothing when it does not.
std::optional<GenreErreur> Panne(const std::function<void()> &etape) {
  try {
    etape();
  } catch (const ErreurBase &erreur) {
    return erreur.Genre();
  }
  return std::nullopt;
}

Correspondant Nomme(const QString &nom) {
  Correspondant c;
  c.NomVelmira = nom;
  return c;
}

}  // namespace

TEST_F(BaseTest, FichierAbsent) {
  Ouvrir(0);
  EXPECT_TRUE(base.Ouverte());
  EXPECT_NO_THROW(base.Ouvrir(Chemin(u"absent.mdb"_s)));
  EXPECT_FALSE(base.Ouverte()) << "the earlier one is closed";
  EXPECT_NO_THROW(base.Ouvrir(Chemin(u"nulle/part.mdb"_s)));
  EXPECT_EQ(Contenu(), QStringList{mdb});
  EXPECT_THROW(Cles(base), ErreurBase);
  EXPECT_THROW(Transaction{base}, ErreurBase);
  EXPECT_THROW(CreerBaseVide(CheminMdb()), ErreurBase);
}

TEST_F(BaseTest, CheminAvecDesSignes) {
  const QString dossier = u"Été 100% #1 ?mode=ro&x"_s;
  ASSERT_TRUE(QDir().mkdir(Chemin(dossier)));
  CreerBaseVide(Chemin(dossier + u"/Velmira.mdb"_s));
  base.Ouvrir(Chemin(dossier + u"/Velmira.mdb"_s));
  ASSERT_TRUE(base.Ouverte());
  EXPECT_EQ(AjouterLigne(base, Nomme(u"Zoé"_s)), 1);
  EXPECT_EQ(Contenu(), QStringList{dossier});
}

TEST_F(BaseTest, FichierRefuse) {
  const auto nouvelle = [this](const QStringList &textes) {
    QFile::remove(CheminMdb());
    CreerBaseVide(CheminMdb());
    Sql(mdb, textes);
  };
  using enum GenreErreur;
  const struct {
    const char *nom;
    GenreErreur genre;
    std::function<void()> poser;
  } cas[] = {
      {"text", Etrangere,
       [&] { Poser(mdb, QByteArray("Ceci n'est pas une base.\r\n").repeated(200)); }},
      {"empty", Etrangere, [&] { Poser(mdb, ""); }},
      {"one byte", Etrangere, [&] { Poser(mdb, "S"); }},
      {"bare header", Etrangere, [&] { Poser(mdb, QByteArray("SQLite format 3\0", 16)); }},
      {"foreign", Etrangere,
       [&] {
         Sql(mdb, {u"CREATE TABLE t (a)"_s, u"INSERT INTO t VALUES (1)"_s});
       }},
      {"same tables, no mark", Etrangere, [&] { nouvelle({u"PRAGMA application_id=0"_s}); }},
      {"newer", PlusRecente,
       [&] { nouvelle({u"PRAGMA user_version=%1"_s.arg(Base::kVersion + 1)}); }},
      {"no table", Endommagee, [&] { nouvelle({u"DROP TABLE ListeAlerte"_s}); }},
      {"endless view in the place of a table", Endommagee,
       [&] {
         nouvelle(
             {u"DROP TABLE Ville"_s,
              u"CREATE VIEW Ville AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 "
              "FROM n) SELECT i AS [Index], '' AS CodePostal, '' AS Ville, '' AS Liens FROM n"_s});
       }},
      {"no column", Endommagee, [&] { nouvelle({u"ALTER TABLE Adresse DROP COLUMN DataProt"_s}); }},
      {"column renamed", Endommagee,
       [&] { nouvelle({u"ALTER TABLE Alerte RENAME COLUMN Disponible TO D"_s}); }},
  };
  for (const auto &c : cas) {
    SCOPED_TRACE(c.nom);
    QFile::remove(CheminMdb());
    c.poser();
    const QByteArray avant = Octets(mdb);
    try {
      base.Ouvrir(CheminMdb());
      ADD_FAILURE() << "opened";
    } catch (const ErreurBase &erreur) {
      EXPECT_EQ(erreur.Genre(), c.genre);
      EXPECT_TRUE(erreur.Texte().contains(CheminMdb())) << erreur.Texte().toStdString();
    }
    EXPECT_FALSE(base.Ouverte());
    base.Fermer();
    EXPECT_EQ(Octets(mdb), avant);
    EXPECT_EQ(Contenu(), QStringList{mdb});
  }
  EXPECT_EQ(Panne([this] { base.Ouvrir(Chemin()); }), Inaccessible) << "a folder";
  EXPECT_FALSE(base.Ouverte());
}

// Each kind of failure has a sentence of its own, at work and at the opening: in French, with the
// file and what can be done, and the engine's words behind all that.
TEST_F(BaseTest, PhraseDeChaquePanne) {
  const struct {
    int code;
    const char16_t *raison, *remede;
  } cas[] = {
      {5, u"l'occupe", u"Attendez"},
      {13, u"plus de place", u"Libérez"},
      {8, u"protégé en écriture", u"droits"},
      {11, u"endommagé", u"copie de sauvegarde"},
      {26, u"pas une base de données de Velmira", u"Remettez"},
      {10 | 3 << 8, u"le disque ou le réseau", u"Vérifiez le disque"},
      {7, u"erreur imprévue", u"Recommencez"},
      {14, u"", u"Vérifiez vos droits"},
  };
  QStringList phrases;
  for (const auto &c : cas) {
    SCOPED_TRACE(c.code);
    const QSqlError moteur(u"driver words"_s, u"engine words"_s, QSqlError::UnknownError,
                           QString::number(c.code));
    const ErreurBase travail = ErreurMoteur(moteur, CheminMdb());
    for (const ErreurBase &erreur : {travail, ErreurOuverture(CheminMdb(), travail)}) {
      const QString &texte = erreur.Texte();
      EXPECT_TRUE(texte.startsWith(u"La base de données « "_s + CheminMdb()) &&
                  texte.contains(QString::fromUtf16(c.raison)) &&
                  texte.contains(QString::fromUtf16(c.remede)) &&
                  texte.endsWith(u"\n\nDétail technique : engine words (%1)"_s.arg(c.code)) &&
                  texte.count(u"engine words"_s) == 1)
          << texte.toStdString();
      EXPECT_FALSE(phrases.contains(texte));
      phrases.append(texte);
    }
  }
}

// A file cut or overwritten: opening or reading tells it or reads on, and never touches the file.
TEST_F(BaseTest, FichierEndommage) {
  Creer(2000);
  const QByteArray saine = Octets(mdb);
  ASSERT_GT(saine.size(), 200'000);
  QList<QByteArray> abimees;
  for (qsizetype taille : {qsizetype{50}, qsizetype{100}, qsizetype{4096}, qsizetype{5000},
                           saine.size() / 2, saine.size() - 4096, saine.size() - 1})
    abimees.append(saine.left(taille));
  std::mt19937 hasard(20260615);
  for (int i = 0; i < 60; ++i) {
    QByteArray copie = saine;
    const qsizetype longueur = i % 3 == 0 ? 4096 : 1 + i;
    // One in two hits the header and the schema, the others any page.
    const qsizetype debut = qsizetype(hasard()) % (i % 2 ? saine.size() - longueur : 9000);
    for (qsizetype k = debut; k < debut + longueur; ++k) copie[k] = static_cast<char>(hasard());
    abimees.append(copie);
  }
  int refusees = 0;
  for (const QByteArray &octets : abimees) {
    base.Fermer();
    Poser(mdb, octets);
    try {
      base.Ouvrir(CheminMdb());
      TableAdresse adresses(base);
      const QList<Cle> cles = Cles(base);
      for (qsizetype i = 0; i < cles.size(); i += 7) adresses.Lire(cles[i]);
      adresses.Categories();
      adresses.EstVide();
    } catch (const ErreurBase &) {
      ++refusees;
    }
    ASSERT_TRUE(Octets(mdb) == octets);
  }
  EXPECT_GE(refusees, 7) << "at least whatever was cut";

  // A lost page in the middle of the table: an error, never a list that ends early.
  const qsizetype page = saine.size() / 2 / 4096 * 4096;
  base.Fermer();
  Poser(mdb, QByteArray(saine).replace(page, 4096, QByteArray(4096, '\0')));
  base.Ouvrir(CheminMdb());
  EXPECT_EQ(Panne([&] { Cles(base); }), GenreErreur::Endommagee);
}

TEST_F(BaseTest, OrdreDesColonnes) {
  Ouvrir(0);
  const std::pair<QString, QString> cas[] = {
      {u"Adresse"_s,
       u"Index Ligne1 Ligne2 Ligne3 Ligne4 Ligne5 CodePostal Ville Pays Categories NomVelmira Tel "
       "Fax Mail Commentaires Portable AdresseImportee OptionAdresse Web TelTravail Photo "
       "ListeRougeTel ListeRougeTravail DDN DataProt AlerteActive"_s},
      {u"Expediteur"_s,
       u"Index Ligne1 Ligne2 Ligne3 Ligne4 Ligne5 CodePostal Ville Pays ParDefaut "
       "OptionAdresse"_s},
      {u"Ville"_s, u"Index CodePostal Ville Liens"_s},
      {u"Alerte"_s, u"ID Type_alerte Disponible"_s},
      {u"Listecoal"_s, u"ID Nom DDN Disponible"_s},
      {u"ListeAlerte"_s, u"ID Nom Alerte Date Annuel Age Delai Actif"_s},
  };
  for (const auto &[table, colonnes] : cas) {
    QStringList noms;
    Requete requete(base, u"PRAGMA table_info(%1)"_s.arg(table));
    while (requete.Suivante()) noms.append(requete.Texte(1));
    EXPECT_EQ(noms.join(u' '), colonnes);
  }
}

// Each field of a row goes into the column of its name and comes back; null is not empty.
TEST_F(BaseTest, AllerRetour) {
  using C = Correspondant;
  const QStringList noms =
      u"Ligne1 Ligne2 Ligne3 Ligne4 Ligne5 CodePostal Ville Pays Categories NomVelmira Tel Fax "
      "Mail Commentaires Portable AdresseImportee Web TelTravail Photo DDN DataProt"_s.split(u' ');
  QString C::*const champs[] = {
      &C::Ligne1, &C::Ligne2,       &C::Ligne3,     &C::Ligne4,          &C::Ligne5, &C::CodePostal,
      &C::Ville,  &C::Pays,         &C::Categories, &C::NomVelmira,      &C::Tel,    &C::Fax,
      &C::Mail,   &C::Commentaires, &C::Portable,   &C::AdresseImportee, &C::Web,    &C::TelTravail,
      &C::Photo,  &C::DDN,          &C::DataProt};
  Ouvrir(0);
  const TableAdresse adresses(base);
  C plein;
  for (int i = 0; i < noms.size(); ++i) plein.*champs[i] = noms[i];
  plein.OptionAdresse = 1;
  plein.ListeRougeTravail = plein.AlerteActive = true;
  const Cle cle = AjouterLigne(base, plein);
  const auto relu = adresses.Lire(cle);
  ASSERT_TRUE(relu);
  for (int i = 0; i < noms.size(); ++i) {
    EXPECT_EQ((*relu).*champs[i], noms[i]);
    Requete requete(base, u"SELECT Adresse.[%1] FROM Adresse"_s.arg(noms[i]));
    ASSERT_TRUE(requete.Suivante());
    EXPECT_EQ(requete.Texte(0), noms[i]);
  }
  EXPECT_EQ(std::tuple(relu->OptionAdresse, relu->ListeRougeTel, relu->ListeRougeTravail,
                       relu->AlerteActive),
            std::tuple(1, false, true, true));

  C mele = Nomme(u"d'O\"r'); DROP TABLE \"Adresse\"; -- 東京 😀\n\r\n"_s);
  mele.Tel = u""_s;
  const auto mele2 = adresses.Lire(AjouterLigne(base, mele));
  ASSERT_TRUE(mele2);
  EXPECT_EQ(mele2->NomVelmira, mele.NomVelmira);
  EXPECT_TRUE(mele2->Tel.isEmpty() && !mele2->Tel.isNull());
  EXPECT_TRUE(mele2->Fax.isNull());
  EXPECT_FALSE(adresses.Lire(99));

  Requete(base, u"INSERT INTO Adresse DEFAULT VALUES"_s).Executer();
  const auto nul = adresses.Lire(3);
  ASSERT_TRUE(nul);
  for (auto champ : champs) EXPECT_TRUE(((*nul).*champ).isNull());
  EXPECT_FALSE(nul->OptionAdresse || nul->ListeRougeTel || nul->AlerteActive);
  EXPECT_EQ(Cles(base), (QList<Cle>{1, 2, 3})) << "the walk meets it too";
}

TEST_F(BaseTest, Categories) {
  Ouvrir(0);
  const TableAdresse adresses(base);
  EXPECT_TRUE(adresses.EstVide());
  EXPECT_TRUE(adresses.Categories().isEmpty());
  for (const auto *categories : {u"*Z*", u"", u"*A*", u"*Z*", u"*a*", u"*A*B*"}) {
    Correspondant c;
    c.Categories = QString::fromUtf16(categories);
    AjouterLigne(base, c);
  }
  AjouterLigne(base, Correspondant{});
  EXPECT_EQ(adresses.Categories().join(u' '), u"*Z* *A* *a* *A*B*"_s);
  EXPECT_FALSE(adresses.EstVide());

  // The order of the table holds for many values too, whatever way the engine gathers them.
  QStringList toutes = adresses.Categories();
  Transaction transaction(base);
  for (int i = 3000; i > 0; --i) {
    Correspondant c;
    c.Categories = u"*"_s + QString::number(i * 7919 % 3001) + u'*';
    AjouterLigne(base, c);
    AjouterLigne(base, c);
    toutes.append(c.Categories);
  }
  transaction.Valider();
  EXPECT_EQ(adresses.Categories(), toutes);
}

// What the engine calls "extra", so that a power cut brings back nothing that was told as written.
TEST_F(BaseTest, EcritSurLeDisque) {
  Ouvrir(0);
  Requete requete(base, u"PRAGMA synchronous"_s);
  ASSERT_TRUE(requete.Suivante());
  EXPECT_EQ(requete.Entier(0), 3);
}

TEST_F(BaseTest, CleJamaisRedonnee) {
  Ouvrir(3);
  Requete(base, u"DELETE FROM Adresse"_s).Executer();
  base.Ouvrir(CheminMdb());
  EXPECT_EQ(AjouterLigne(base, Nomme(u"A"_s)), 4);
}

TEST_F(BaseTest, TransactionNonValidee) {
  Ouvrir(1);
  {
    Transaction transaction(base);
    AjouterLigne(base, Nomme(u"A"_s));
  }
  EXPECT_EQ(Cles(base).size(), 1);
  {
    Transaction transaction(base);
    AjouterLigne(base, Nomme(u"B"_s));
    transaction.Valider();
  }
  EXPECT_EQ(Cles(base).size(), 2);
}

TEST_F(BaseTest, DeuxiemeEcrivainAttend) {
  Ouvrir(1);
  auto transaction = std::make_unique<Transaction>(base);
  AjouterLigne(base, Nomme(u"premier"_s));

  std::atomic<bool> pret = false, libere = false;
  bool avant = true, echec = true;
  std::thread fil([&] {
    try {
      Base second;
      second.Ouvrir(CheminMdb());
      pret = true;
      Transaction sienne(second);
      avant = !libere;
      AjouterLigne(second, Nomme(u"second"_s));
      sienne.Valider();
      echec = false;
    } catch (const std::exception &) {
      pret = true;
    }
  });
  while (!pret) std::this_thread::sleep_for(std::chrono::milliseconds(5));
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  libere = true;
  transaction->Valider();
  transaction.reset();
  fil.join();
  EXPECT_FALSE(echec);
  EXPECT_FALSE(avant) << "the second writer has not waited";
  EXPECT_EQ(Cles(base).size(), 3);
}

/// As the notes are written; a row that has gone is taken as it stood in `montree`.
void EcrireNotes(Base &base, const Correspondant &montree, const QString &texte) {
  Correspondant saisie = montree;
  saisie.Commentaires = texte;
  EXPECT_FALSE(TableAdresse(base).Modifier(montree, saisie)) << "nobody else has changed them";
}

TEST_F(BaseTest, LigneSupprimeeParUnAutre) {
  Ouvrir(2);
  Base autre;
  autre.Ouvrir(CheminMdb());
  TableAdresse adresses(base);
  const Correspondant premier = *adresses.Lire(1), second = *adresses.Lire(2);
  EcrireNotes(base, second, u"l'été"_s);
  EXPECT_EQ(TableAdresse(autre).Lire(2)->Commentaires, u"l'été"_s);
  EXPECT_NE(TableAdresse(autre).Lire(1)->Commentaires, u"l'été"_s);
  Requete(autre, u"DELETE FROM Adresse WHERE [Index]=2"_s).Executer();
  EXPECT_THROW(EcrireNotes(base, second, u"perdu"_s), ErreurBase);
  EXPECT_THROW(adresses.AjouterCategorie(2, u"Favoris"_s), ErreurBase);
  EXPECT_NO_THROW(EcrireNotes(base, premier, u"suite"_s)) << "no transaction is left open";
  EXPECT_EQ(Cles(autre), QList<Cle>{1});
}

TEST_F(BaseTest, LigneChangeeParUnAutre) {
  Ouvrir(1);
  const Correspondant montree = *TableAdresse(base).Lire(1);
  Correspondant autre = montree, saisie = montree, memes = montree;
  autre.Ville = u"Lyon"_s;
  autre.Photo = QString();  // null is as empty as ""
  autre.Commentaires = QString(500, u'n') + u" la sienne"_s;
  ModifierLigne(base, autre, ~Seulement<Correspondant>(&Correspondant::Index));
  memes.Ville = u"Lyon"_s;
  memes.Mail = u"a@b.fr"_s;
  memes.Photo = u""_s;
  EXPECT_FALSE(ModifierChangees(base, montree, memes, {})) << "the same change is no conflict";
  saisie.Ville = u"Lyon"_s;
  saisie.Tel = u"1"_s;
  saisie.Commentaires = QString(500, u'n') + u" la mienne"_s;
  const auto stockee = ModifierChangees(base, montree, saisie, {});
  ASSERT_TRUE(stockee);
  EXPECT_EQ(stockee->Mail, u"a@b.fr"_s);
  EXPECT_EQ(TableAdresse(base).Lire(1)->Tel, montree.Tel) << "nothing is written before the answer";
  const auto conflits = Comparer(montree, saisie, *stockee).conflits;
  EXPECT_EQ(conflits, Seulement(&Correspondant::Commentaires));
  const QString texte = TexteConflit(ChampsEnConflit(
      conflits, saisie, *stockee, {{Ordinal(&Correspondant::Commentaires), {u"Notes"_s}}}));
  EXPECT_TRUE(texte.contains(u"Notes"_s) && texte.contains(u"la mienne"_s) &&
              texte.contains(u"la sienne"_s))
      << "long texts differ before the user's eyes too: " << texte.toStdString();
}

TEST_F(BaseTest, DisquePleinPendantLEcriture) {
  Ouvrir(200);
  const QByteArray avant = Octets(mdb);
  const Correspondant premier = *TableAdresse(base).Lire(1);
  {
    const DisquePlein plein(static_cast<rlim_t>(avant.size()));
    EXPECT_THROW(EcrireNotes(base, premier, QString(100'000, u'x')), ErreurBase);
  }
  EXPECT_EQ(Cles(base).size(), 200);
  EXPECT_EQ(TableAdresse(base).Lire(1)->Commentaires, u""_s);
  EXPECT_NO_THROW(EcrireNotes(base, premier, u"suite"_s));

  // In the middle of many writings the engine takes back what it has: no later one may stay alone.
  Requete(base, u"UPDATE Adresse SET Tel='12', Commentaires='"_s + QString(800, u'n') + u'\'')
      .Executer();
  {
    const DisquePlein plein(static_cast<rlim_t>(Octets(mdb).size() / 2));
    EXPECT_THROW(TableAdresse(base).ReformaterTelephones([](const QString &n) { return n + n; },
                                                         [](auto, auto) { return true; }),
                 ErreurBase);
  }
  Requete changees(base, u"SELECT count(*) FROM Adresse WHERE Tel<>'12'"_s);
  ASSERT_TRUE(changees.Suivante());
  EXPECT_EQ(changees.Entier(0), 0);
}

// A transaction in which something else fails than a row is over, whatever the engine has made of
// it.
TEST_F(BaseTest, PanneDansUneTransaction) {
  Creer(1);
  const QString grande = u"INSERT INTO Adresse (NomVelmira) VALUES (zeroblob(100000))"_s;
  const struct {
    const char *nom;
    QString avant, dedans;
    GenreErreur genre;
  } cas[] = {
      {"full", u"PRAGMA max_page_count=1"_s, grande, GenreErreur::Pleine},
      {"read only", {}, u"PRAGMA query_only=1"_s, GenreErreur::LectureSeule},
      {"row refused",
       u"CREATE TRIGGER garde BEFORE INSERT ON Ville BEGIN SELECT RAISE(ABORT, 'non'); END"_s,
       u"INSERT INTO Ville DEFAULT VALUES"_s, GenreErreur::Contrainte},
      {"no such table", {}, u"SELECT 1 FROM rien"_s, GenreErreur::Autre},
  };
  qsizetype lignes = 1;
  for (const auto &c : cas) {
    SCOPED_TRACE(c.nom);
    base.Ouvrir(CheminMdb());
    if (!c.avant.isEmpty()) Requete(base, c.avant).Suivante();
    {
      Transaction transaction(base);
      AjouterLigne(base, Nomme(u"dedans"_s));
      EXPECT_EQ(Panne([&] {
                  Requete(base, c.dedans).Executer();
                  Requete(base, grande).Executer();
                }),
                c.genre);
      const bool perdue = c.genre != GenreErreur::Contrainte;
      const auto suite = perdue ? std::optional(c.genre) : std::nullopt;
      EXPECT_EQ(Panne([&] { AjouterLigne(base, Nomme(u"suite"_s)); }), suite);
      EXPECT_EQ(Panne([&] { transaction.Valider(); }), suite);
      if (!perdue) lignes += 2;
    }
    base.Ouvrir(CheminMdb());
    EXPECT_EQ(Cles(base).size(), lignes);
  }

  Base autre;
  autre.Ouvrir(CheminMdb());
  const Transaction sienne(autre);
  Requete(base, u"PRAGMA busy_timeout=0"_s).Suivante();
  EXPECT_EQ(Panne([&] { const Transaction transaction(base); }), GenreErreur::Occupee);
  EXPECT_EQ(Cles(base).size(), lignes) << "nothing is lost where nothing had begun";
}

// The child is killed with pages of its transaction already in the file.
TEST_F(BaseTest, ProgrammeTueAuMilieuDUneTransaction) {
  Creer(500);
  const QByteArray avant = Octets(mdb);
  const pid_t enfant = ::fork();
  ASSERT_GE(enfant, 0);
  if (enfant == 0) {
    try {
      base.Ouvrir(CheminMdb());
      Requete(base, u"PRAGMA cache_size=5"_s).Executer();
      Transaction transaction(base);
      Requete(base, u"UPDATE Adresse SET Commentaires='perdu'"_s).Executer();
      for (int i = 0; i < 300; ++i) AjouterLigne(base, Nomme(u"Fantôme %1"_s.arg(i)));
      ::kill(::getpid(), SIGKILL);
    } catch (...) {
    }
    ::_exit(1);
  }
  int etat = 0;
  ASSERT_EQ(::waitpid(enfant, &etat, 0), enfant);
  ASSERT_TRUE(WIFSIGNALED(etat) && WTERMSIG(etat) == SIGKILL);
  ASSERT_TRUE(Existe(u"Velmira.mdb-journal"_s));
  ASSERT_FALSE(Octets(mdb) == avant) << "the transaction had reached the file";
  base.Ouvrir(CheminMdb());
  EXPECT_EQ(Cles(base).size(), 500);
  EXPECT_EQ(TableAdresse(base).Lire(11)->Commentaires, QString(10, u'n'));
  EXPECT_EQ(AjouterLigne(base, Nomme(u"A"_s)), 501);
}

TEST_F(BaseTest, ChangementsDesAutres) {
  EXPECT_EQ(base.Changements(), 0) << "none is open";
  Ouvrir(1);
  const qint64 avant = base.Changements();
  AjouterLigne(base, Nomme(u"Zoé"_s));
  EXPECT_EQ(base.Changements(), avant) << "one's own";
  Base autre;
  autre.Ouvrir(CheminMdb());
  AjouterLigne(autre, Nomme(u"Yves"_s));
  EXPECT_NE(base.Changements(), avant);

  Requete(autre, u"BEGIN EXCLUSIVE"_s).Executer();
  const auto duree = [&](const std::function<void()> &etape) {
    const auto debut = std::chrono::steady_clock::now();
    EXPECT_EQ(Panne(etape), GenreErreur::Occupee);
    return std::chrono::steady_clock::now() - debut;
  };
  const auto compter = [&] { TableAdresse(base).Nombre(); };
  EXPECT_LT(duree(compter), std::chrono::seconds(9))
      << "a click does not wait as long as a writing";
  const Attente attente(base, std::chrono::milliseconds(0));
  EXPECT_LT(duree(compter), std::chrono::seconds(1));
}
