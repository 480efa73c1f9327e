// The upgrade: what becomes of each value, databases of every age, and what a failure leaves.

#include "Outils.h"
#include "app/Demarrage.h"
#include "commun/BaseAncienne.h"
#include "commun/BoitesMuettes.h"
#include "commun/PanneDeDossier.h"
#include "platform/Fichiers.h"
#include "storage/MiseAJour.h"
#include "storage/Requete.h"
#include "storage/SourceSqlite.h"

#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Valeur = std::optional<QVariant>;
constexpr std::nullopt_t kIllisible = std::nullopt;
const QVariant kNul;

/// Tables given field by field; column 0 is the key.
class SourceDonnee : public SourceAncienne {
 public:
  QMap<QString, QList<QList<Valeur>>> tables;

  bool Ouvrir(const QString &table) override {
    courante_ = table;
    rang_ = -1;
    return tables.contains(table);
  }
  bool Suivante() override { return ++rang_ < tables[courante_].size(); }
  Valeur Champ(int ordinal) override { return tables[courante_][rang_].value(ordinal, kIllisible); }

 private:
  QString courante_;
  qsizetype rang_ = -1;
};

/// A correspondent whose fields are empty texts or 0, but for those given.
QList<Valeur> Fiche(const QMap<int, Valeur> &champs) {
  QList<Valeur> ligne(26, QVariant(u""_s));
  for (auto champ = champs.cbegin(); champ != champs.cend(); ++champ) ligne[champ.key()] = *champ;
  return ligne;
}

class MiseAJourTest : public DansUnDossier {
 protected:
  void PoserBaseVide(const QString &nom) const {
    if (!Existe(u"vide.base"_s)) CreerBaseVide(Chemin(u"vide.base"_s));
    QFile::remove(Chemin(nom));
    ASSERT_TRUE(QFile::copy(Chemin(u"vide.base"_s), Chemin(nom)));
  }
  /// Copies into a new base.
  void Copier(SourceAncienne &source, const QString &separateur = u" "_s, quint8 jours = 0) {
    PoserBaseVide(u"cible.mdb"_s);
    Base cible;
    cible.Ouvrir(Chemin(u"cible.mdb"_s));
    CopierBase(source, cible, {separateur, jours}, [](qsizetype) {});
  }
  QStringList Cible(const char16_t *table) const {
    return FichierNu(Chemin(u"cible.mdb"_s)).Table(table);
  }

  /// An application folder; the data stand beside it.
  void Installer(const QString &cheminBase = {}) const {
    const auto ecrire = [this](const QString &nom, const QString &chemin) {
      Poser(nom, (u'"' + chemin + u"\"\r\n"_s).toLatin1());
    };
    QDir().mkdir(Chemin(u"app"_s));
    ecrire(u"app/CheminData.cfg"_s, Chemin());
    ecrire(u"app/Cheminbase.cfg"_s, cheminBase.isEmpty() ? Chemin() : cheminBase);
  }
  void Demarrer() {
    dossiers.AppPath = Chemin(u"app"_s);
    ASSERT_TRUE(
        Demarrage(boites, dossiers, {[this](const QString &a) { annonces.append(a); }}).Executer());
  }
  /// An old database of so many correspondents.
  void CreerAncienne(const QString &nom, int lignes,
                     const QMap<QString, int> &colonnes = {}) const {
    CreerBaseAncienne(Chemin(nom), colonnes);
    FichierNu fichier(Chemin(nom));
    fichier.Executer(u"BEGIN"_s);
    for (int i = 1; i <= lignes; ++i)
      fichier.Executer(u"INSERT INTO Adresse (NomVelmira, Categories, Tel) VALUES (?, 'Amis', ?)"_s,
                       {u"Durand %1"_s.arg(i), u"0240%1"_s.arg(i, 6, 10, QChar(u'0'))});
    fichier.Executer(u"COMMIT"_s);
  }
  QStringList Noms(const QString &nom) const {
    return FichierNu(Chemin(nom)).Executer(u"SELECT NomVelmira FROM Adresse ORDER BY 1"_s);
  }
  QStringList Bases() const {
    return QDir(Chemin()).entryList({u"*mdb*"_s}, QDir::Files, QDir::Name);
  }

  const QStringList commencee{
      u"La nouvelle version du programme va faire la mise à jour de votre base de données"_s,
      u"NB :"_s};
  const QStringList faite = commencee + QStringList{u"Mise à jour de la base terminée."_s};
  BoitesMuettes boites;
  Dossiers dossiers;
  QStringList annonces;
};

}  // namespace

TEST_F(MiseAJourTest, ValeursDUneFiche) {
  const QVariant vrai = 1, non = 0;
  const struct {
    int ordinal;
    Valeur ancien;
    const char16_t *attendu;
  } cas[] = {
      {9, u"Amis"_s, u"*Amis*"},
      {9, u"*Amis"_s, u"*Amis*"},
      {9, u"Amis*"_s, u"*Amis*"},
      {9, u"*Amis*Travail*"_s, u"*Amis*Travail*"},
      {9, u"Amis*Travail"_s, u"*Amis*Travail*"},
      {9, u""_s, u""},
      {9, kNul, u"nul"},
      {11, u"02.40.12.34.56"_s, u"02 40 12 34 56"},
      {12, u"+33 2 40"_s, u"3 32 40"},
      {15, u"123456789"_s, u"1 23 45 67 89"},
      {19, QVariant(3639), u"36 39"},
      {11, kNul, u""},
      {12, kIllisible, u""},
      {15, u"ab"_s, u"b"},
      {13, u"02.40"_s, u"02.40"},
      {14, u"ligne\r\nligne"_s, u"ligne\r\nligne"},
      {24, kNul, u""},
      {24, kIllisible, u""},
      {24, u"No"_s, u""},
      {24, u"0"_s, u""},
      {24, non, u""},
      {24, vrai, u"1"},
      {24, u"Paul$"_s, u"Paul$"},
      {24, u"Paul"_s, u"Paul"},
      {8, kNul, u"nul"},
      {17, vrai, u"1"},
      {17, u"1"_s, u"1"},
      {17, u"un"_s, u"0"},
      {17, QVariant(qint64{1} << 40), u"0"},
      {21, QVariant(-1), u"1"},
      {22, kNul, u"0"},
      {23, kIllisible, u"nul"},
      {20, kIllisible, u"nul"},
  };
  SourceDonnee source;
  for (const auto &c : cas) source.tables[u"Adresse"_s].append(Fiche({{c.ordinal, c.ancien}}));
  Copier(source);
  const QStringList lignes = Cible(u"Adresse");
  ASSERT_EQ(lignes.size(), std::ssize(cas));
  for (qsizetype i = 0; i < lignes.size(); ++i) {
    SCOPED_TRACE(i);
    const QStringList champs = lignes[i].split(u'|');
    EXPECT_EQ(champs[cas[i].ordinal], QString::fromUtf16(cas[i].attendu));
    EXPECT_EQ(champs[0], QString::number(i + 1));
    EXPECT_EQ(champs[1], u""_s) << "the other fields stay as they are";
  }
  Copier(source, u" / "_s);
  EXPECT_EQ(Cible(u"Adresse")[7].split(u'|')[11], u"02 / 40 / 12 / 34 / 56"_s);
  Copier(source, u""_s);
  EXPECT_EQ(Cible(u"Adresse")[7].split(u'|')[11], u"0240123456"_s);
}

TEST_F(MiseAJourTest, AlerteActive) {
  SourceDonnee source;
  for (const auto &[nom, active] : {std::pair{u"Élodie Martin"_s, 0},
                                    {u"Paul"_s, 0},
                                    {u"Zoé"_s, 1},
                                    {u"Luc"_s, 0},
                                    {u"Weiß"_s, 0},
                                    {u"Weiss"_s, 0}})
    source.tables[u"Adresse"_s].append(Fiche({{10, QVariant(nom)}, {25, QVariant(active)}}));
  source.tables[u"Listecoal"_s] = {{1, u"ÉLODIE martin"_s, u""_s, 1},
                                   {2, u"Paul"_s, u""_s, 0},
                                   {3, u"Luc"_s, u"01/02/1980"_s},
                                   {4, u"WEISS"_s, u""_s, 1}};
  Copier(source);
  QStringList actives;
  for (const QString &ligne : Cible(u"Adresse")) actives += ligne.section(u'|', 25);
  EXPECT_EQ(actives, (QStringList{u"1"_s, u"0"_s, u"1"_s, u"1"_s, u"0"_s, u"1"_s}))
      << "no mark: in force";
  EXPECT_EQ(Cible(u"Listecoal"), (QStringList{u"1|ÉLODIE martin||1"_s, u"2|Paul||0"_s,
                                              u"3|Luc|01/02/1980|1"_s, u"4|WEISS||1"_s}));
}

TEST_F(MiseAJourTest, ClesEtRenvois) {
  SourceDonnee source;
  source.tables[u"Ville"_s] = {{4, u"44000"_s, u"Nantes"_s, u"4*9"_s},
                               {9, u"44100"_s, u"Nantes"_s, u"4*9"_s}};
  source.tables[u"ListeAlerte"_s] = {
      {7, 12, u"3"_s, u"01/02/2020"_s, 1, 0, 5, 0},
      {8, 12, 3, u"01/02/2020"_s, kNul, -1, kNul, kNul},
      {9, 12, 3, u"01/02/2020"_s, 1, 0},
      {10, kIllisible, u"?"_s, kIllisible, 0, 0, u"?"_s, kIllisible}};
  source.tables[u"Alerte"_s] = {{2, u"Fête"_s, 0}, {5, u"Anniversaire"_s}};
  Copier(source, u" "_s, 9);
  EXPECT_EQ(Cible(u"Ville"), (QStringList{u"1|44000|Nantes|4*9"_s, u"2|44100|Nantes|4*9"_s}));
  EXPECT_EQ(Cible(u"Alerte"), (QStringList{u"1|Fête|0"_s, u"2|Anniversaire|1"_s}));
  EXPECT_EQ(Cible(u"ListeAlerte"),
            (QStringList{u"1|12|3|01/02/2020|1|0|5|0"_s, u"2|12|3|01/02/2020|0|1|0|0"_s,
                         u"3|12|3|01/02/2020|1|0|9|1"_s, u"4|0|0|nul|0|0|9|1"_s}));
}

// What makes the row must be there; the copy stops, and the target keeps what it had.
TEST_F(MiseAJourTest, ChampNecessaireIllisible) {
  const QList<Valeur> expediteur(11, QVariant(u"1"_s));
  const QList<Valeur> ville(4, QVariant(u"1"_s));
  const struct {
    QString table;
    QList<Valeur> ligne;
  } cas[] = {
      {u"Adresse"_s, Fiche({{1, kIllisible}})},
      {u"Adresse"_s, Fiche({{8, kIllisible}})},
      {u"Adresse"_s, Fiche({}).mid(0, 8)},
      {u"Expediteur"_s, expediteur.mid(0, 10)},
      {u"Ville"_s, ville.mid(0, 3)},
  };
  for (const auto &c : cas) {
    SCOPED_TRACE(c.table.toStdString());
    const QString nom = u"cible.mdb"_s;
    PoserBaseVide(nom);
    FichierNu(Chemin(nom)).Executer(u"INSERT INTO Ville (Ville) VALUES ('Nantes')"_s);
    SourceDonnee source;
    source.tables[u"Adresse"_s] = {Fiche({})};
    source.tables[c.table].append(c.ligne);
    Base cible;
    cible.Ouvrir(Chemin(nom));
    EXPECT_THROW(CopierBase(source, cible, {}, [](qsizetype) {}), ErreurBase);
    cible.Fermer();
    EXPECT_EQ(FichierNu(Chemin(nom)).Table(u"Ville"), QStringList{u"1|nul|Nantes|nul"_s});
    EXPECT_TRUE(FichierNu(Chemin(nom)).Table(u"Adresse").isEmpty());
  }
}

TEST_F(MiseAJourTest, BasesDeChaqueAge) {
  const struct {
    const char *nom;
    QMap<QString, int> colonnes;
    const char16_t *fin, *alerte;
  } ages[] = {
      {"of today", {}, u"01/01/1950|Paul$|1", u"1|1|1|01/02/2020|1|0|3|0"},
      {"without the late columns",
       {{u"Adresse"_s, 24}, {u"Alerte"_s, 2}, {u"Listecoal"_s, 3}, {u"ListeAlerte"_s, 6}},
       u"01/01/1950||1",
       u"1|1|1|01/02/2020|1|0|12|1"},
      {"before the birth dates",
       {{u"Adresse"_s, 17}, {u"ListeAlerte"_s, 7}},
       u"nul||1",
       u"1|1|1|01/02/2020|1|0|3|1"},
      {"before the alerts",
       {{u"Alerte"_s, 0}, {u"Listecoal"_s, 0}, {u"ListeAlerte"_s, 0}},
       u"01/01/1950|Paul$|0",
       nullptr},
  };
  const QMap<QString, QVariantList> lignes{
      {u"Adresse"_s,
       {7,
        u"M. Durand"_s,
        u"2"_s,
        u"3"_s,
        u"4"_s,
        u"5"_s,
        u"44000"_s,
        u"Nantes"_s,
        u"France"_s,
        u"Amis"_s,
        u"Durand"_s,
        u"0240"_s,
        u"0241"_s,
        u"d@ex.fr"_s,
        u"notes"_s,
        u"06"_s,
        u"importée"_s,
        1,
        u"ex.fr"_s,
        u"0242"_s,
        u"/p.jpg"_s,
        1,
        0,
        u"01/01/1950"_s,
        u"Paul$"_s,
        0}},
      {u"Expediteur"_s,
       {3, u"L1"_s, u"L2"_s, u"L3"_s, u"L4"_s, u"L5"_s, u"CP"_s, u"V"_s, u"P"_s, 1, u"1"_s}},
      {u"Ville"_s, {3, u"44000"_s, u"Nantes"_s, u""_s}},
      {u"Alerte"_s, {1, u"Fête"_s, 0}},
      {u"Listecoal"_s, {1, u"DURAND"_s, u"01/01/1950"_s, 1}},
      {u"ListeAlerte"_s, {1, 1, 1, u"01/02/2020"_s, 1, 0, 3, 0}},
  };
  for (const auto &age : ages) {
    SCOPED_TRACE(age.nom);
    QFile::remove(Chemin(u"ancien.mdb"_s));
    CreerBaseAncienne(Chemin(u"ancien.mdb"_s), age.colonnes);
    for (auto ligne = lignes.cbegin(); ligne != lignes.cend(); ++ligne) {
      const auto nombre = age.colonnes.value(ligne.key(), static_cast<int>(ligne->size()));
      if (nombre > 0)
        FichierNu(Chemin(u"ancien.mdb"_s))
            .Executer(u"INSERT INTO [%1] VALUES (%2)"_s.arg(ligne.key(),
                                                            u"?,"_s.repeated(nombre - 1) + u'?'),
                      ligne->mid(0, nombre));
    }
    const QByteArray avant = Octets(u"ancien.mdb"_s);
    SourceSqlite source(Chemin(u"ancien.mdb"_s));
    Copier(source, u" "_s, 12);
    const QString fiche = Cible(u"Adresse").value(0);
    EXPECT_TRUE(fiche.startsWith(
        u"1|M. Durand|2|3|4|5|44000|Nantes|France|*Amis*|Durand|02 40|02 41|d@ex.fr|notes|06|"
        "importée|"_s))
        << fiche.toStdString();
    EXPECT_TRUE(fiche.endsWith(u'|' + QString::fromUtf16(age.fin))) << fiche.toStdString();
    EXPECT_EQ(Cible(u"Expediteur"), QStringList{u"1|L1|L2|L3|L4|L5|CP|V|P|1|1"_s});
    EXPECT_EQ(Cible(u"Ville"), QStringList{u"1|44000|Nantes|"_s});
    EXPECT_EQ(Cible(u"ListeAlerte"),
              age.alerte ? QStringList{QString::fromUtf16(age.alerte)} : QStringList());
    EXPECT_EQ(Octets(u"ancien.mdb"_s), avant);
  }
  CreerBaseAncienne(Chemin(u"vide.mdb"_s));
  SourceSqlite vide(Chemin(u"vide.mdb"_s));
  Copier(vide);
  PourChaqueTable([&]<typename L>(Table<L>) { EXPECT_TRUE(Cible(Table<L>::nom).isEmpty()); });
}

// The notes cannot be read to their end: they stay empty, with what stood behind them.
TEST_F(MiseAJourTest, NotesEndommagees) {
  CreerAncienne(u"ancien.mdb"_s, 3);
  FichierNu(Chemin(u"ancien.mdb"_s))
      .Executer(u"UPDATE Adresse SET Commentaires=?, Web='ex.fr' WHERE [Index]<3"_s,
                {QString(40'000, u'n')});
  QByteArray octets = Octets(u"ancien.mdb"_s);
  constexpr qsizetype kPage = 4096,
                      kRenvoi = 4;  // a page of notes begins with the next one's number
  qsizetype abimees = 0;
  for (qsizetype page = 0; page < octets.size(); page += kPage)
    if (octets.mid(page + kRenvoi, kPage - kRenvoi) == QByteArray(kPage - kRenvoi, 'n')) {
      octets.replace(page, kRenvoi, QByteArray(kRenvoi, '\xff'));
      ++abimees;
    }
  ASSERT_GT(abimees, 1);
  Poser(u"ancien.mdb"_s, octets);

  SourceSqlite source(Chemin(u"ancien.mdb"_s));
  Copier(source);
  EXPECT_EQ(FichierNu(Chemin(u"cible.mdb"_s))
                .Executer(u"SELECT NomVelmira, Tel, Categories, Commentaires, Web FROM Adresse"_s),
            (QStringList{u"Durand 1|02 40 00 00 01|*Amis*|nul|nul"_s,
                         u"Durand 2|02 40 00 00 02|*Amis*|nul|nul"_s,
                         u"Durand 3|02 40 00 00 03|*Amis*|nul|nul"_s}));
}

TEST_F(MiseAJourTest, AncienneAlarme) {
  Installer();
  const struct {
    const char *avant, *apres;
    int jours;
  } cas[] = {
      {"7,1,0,1,2\r\n", "1,0,2\r\n", 7},
      {"15,0,1,0,0", "0,1,0\r\n", 15},
      {"300,1,1,1,1\r\n", "1,1,1\r\n", 0},
      {"n,n,1,n,1\r\n", "0,1,1\r\n", 0},
      {"12,1,0,\r\n", "1,0,0\r\n", 12},
      {"0,1,0\r\n", "0,1,0\r\n", -1},
      {"1,1,12\r\n7,1,1,1,1\r\n", "1,1,12\r\n7,1,1,1,1\r\n", -1},
      {"", "", -1},
  };
  for (const auto &c : cas) {
    SCOPED_TRACE(c.avant);
    Poser(u"app/Alarme.ini"_s, c.avant);
    const auto lue = LireAncienneAlarme(Chemin(u"app"_s));
    EXPECT_EQ(lue ? lue->JoursAvance : -1, c.jours);
    ConvertirAlarme(Chemin(u"app"_s));
    EXPECT_EQ(Octets(u"app/Alarme.ini"_s), c.apres);
  }
  QFile::remove(Chemin(u"app/Alarme.ini"_s));
  ConvertirAlarme(Chemin(u"app"_s));
  EXPECT_FALSE(Existe(u"app/Alarme.ini"_s));
}

TEST_F(MiseAJourTest, AuDemarrage) {
  Installer();
  CreerAncienne(u"Velmira.mdb"_s, 1200, {{u"ListeAlerte"_s, 6}});
  FichierNu(Chemin(u"Velmira.mdb"_s)).Executer(u"INSERT INTO ListeAlerte DEFAULT VALUES"_s);
  PoserBaseVide(u"Velmira_base.mdb"_s);
  Poser(u"Ancien_Velmira.mdb"_s, "plus ancien");
  Poser(u"app/Alarme.ini"_s, "7,1,0,1,2\r\n");
  Poser(u"app/Liaison.cfg"_s, "\".\",\" - \"\r\n");
  const QByteArray ancienne = Octets(u"Velmira.mdb"_s);
  Demarrer();
  EXPECT_EQ(boites.vues, faite);
  EXPECT_EQ(annonces, (QStringList{u"Mise à jour de la base..."_s,
                                   u"Mise à jour de la base : 500 lignes copiées"_s,
                                   u"Mise à jour de la base : 1000 lignes copiées"_s,
                                   u"Mise à jour de la base : 1201 lignes copiées"_s, QString()}));
  EXPECT_EQ(Bases(), (QStringList{u"Ancien_Velmira.mdb"_s, u"Velmira.mdb"_s}));
  EXPECT_EQ(Octets(u"Ancien_Velmira.mdb"_s), ancienne);
  EXPECT_EQ(Octets(u"app/Alarme.ini"_s), "1,0,2\r\n");
  Base base;
  base.Ouvrir(Chemin(u"Velmira.mdb"_s));
  Requete requete(base, u"SELECT count(*), max([Index]), max(Tel) FROM Adresse"_s);
  ASSERT_TRUE(requete.Suivante());
  EXPECT_EQ(requete.Entier(0), 1200);
  EXPECT_EQ(requete.Entier(1), 1200);
  EXPECT_EQ(requete.Texte(2), u"02.40.00.12.00"_s);
  EXPECT_EQ(FichierNu(Chemin(u"Velmira.mdb"_s)).Table(u"ListeAlerte"),
            QStringList{u"1|0|0|nul|0|0|7|1"_s});

  boites.vues.clear();
  Demarrer();
  EXPECT_EQ(boites.vues, QStringList()) << "only once";
}

// A run that was killed, or one that failed late, has left rows: they are not there twice.
TEST_F(MiseAJourTest, CibleQuiALignes) {
  Installer();
  CreerAncienne(u"Velmira.mdb"_s, 3);
  PoserBaseVide(u"Velmira_base.mdb"_s);
  FichierNu(Chemin(u"Velmira_base.mdb"_s))
      .Executer(u"INSERT INTO Adresse (NomVelmira) VALUES ('Fantôme'), ('Fantôme')"_s);
  Demarrer();
  EXPECT_EQ(
      FichierNu(Chemin(u"Velmira.mdb"_s)).Executer(u"SELECT [Index], NomVelmira FROM Adresse"_s),
      (QStringList{u"1|Durand 1"_s, u"2|Durand 2"_s, u"3|Durand 3"_s}));
}

TEST_F(MiseAJourTest, Echecs) {
  Installer();
  CreerBaseAncienne(Chemin(u"Autre.mdb"_s), {{u"Ville"_s, 0}});
  const QByteArray texte = QByteArray("Ceci n'est pas une base.\r\n").repeated(200);
  const auto bonne = [this] { CreerAncienne(u"Velmira.mdb"_s, 3); };
  const auto vide = [this] { PoserBaseVide(u"Velmira_base.mdb"_s); };
  const struct {
    const char *nom;
    std::function<void()> poser;
    qsizetype boites;
  } cas[] = {
      {"old one is no database",
       [&] {
         Poser(u"Velmira.mdb"_s, texte);
         vide();
       },
       1},
      {"old one lacks a table",
       [&] {
         QFile::copy(Chemin(u"Autre.mdb"_s), Chemin(u"Velmira.mdb"_s));
         vide();
       },
       1},
      {"old one has an endless view in the place of a table",
       [&] {
         CreerAncienne(u"Velmira.mdb"_s, 3, {{u"Ville"_s, 0}});
         FichierNu(Chemin(u"Velmira.mdb"_s))
             .Executer(
                 u"CREATE VIEW Ville AS WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 "
                 "FROM n) SELECT i AS rowid, i FROM n"_s);
         vide();
       },
       1},
      {"old one lacks a needed column",
       [&] {
         CreerAncienne(u"Velmira.mdb"_s, 3, {{u"Expediteur"_s, 10}});
         FichierNu(Chemin(u"Velmira.mdb"_s)).Executer(u"INSERT INTO Expediteur DEFAULT VALUES"_s);
         vide();
       },
       3},
      {"new one is no database",
       [&] {
         bonne();
         Poser(u"Velmira_base.mdb"_s, texte);
       },
       3},
      {"new one is of a later version",
       [&] {
         bonne();
         vide();
         FichierNu(Chemin(u"Velmira_base.mdb"_s)).Executer(u"PRAGMA user_version=99"_s);
       },
       3},
  };
  for (const auto &c : cas) {
    SCOPED_TRACE(c.nom);
    for (const QString &nom : {u"Velmira.mdb"_s, u"Velmira_base.mdb"_s}) QFile::remove(Chemin(nom));
    c.poser();
    Poser(u"Ancien_Velmira.mdb"_s, "plus ancien");
    Poser(u"app/Alarme.ini"_s, "7,1,0,1,2\r\n");
    const QByteArray ancienne = Octets(u"Velmira.mdb"_s), nouvelle = Octets(u"Velmira_base.mdb"_s);
    for (int essai = 0; essai < 2; ++essai) {
      boites.vues.clear();
      annonces.clear();
      Demarrer();
      ASSERT_EQ(boites.vues.size(), c.boites);
      EXPECT_TRUE(boites.vues.constLast().startsWith(u"erreur : "_s));
      EXPECT_EQ(Octets(u"Velmira.mdb"_s), ancienne);
      EXPECT_EQ(Octets(u"Velmira_base.mdb"_s), nouvelle);
      EXPECT_EQ(Octets(u"Ancien_Velmira.mdb"_s), "plus ancien");
      EXPECT_EQ(Octets(u"app/Alarme.ini"_s), "7,1,0,1,2\r\n") << "the next try needs the notice";
      EXPECT_TRUE(annonces.isEmpty() || annonces.constLast().isEmpty()) << "told as over";
    }
  }
}

TEST_F(MiseAJourTest, DisquePlein) {
  Installer();
  CreerAncienne(u"Velmira.mdb"_s, 3000);
  PoserBaseVide(u"Velmira_base.mdb"_s);
  const QByteArray ancienne = Octets(u"Velmira.mdb"_s);
  {
    const ::DisquePlein plein(100'000);
    Demarrer();
  }
  ASSERT_EQ(boites.vues.size(), 3);
  EXPECT_TRUE(boites.vues[2].startsWith(u"erreur : "_s)) << boites.vues[2].toStdString();
  EXPECT_EQ(Bases(), (QStringList{u"Velmira.mdb"_s, u"Velmira_base.mdb"_s}));
  EXPECT_EQ(Octets(u"Velmira.mdb"_s), ancienne);
  EXPECT_TRUE(Noms(u"Velmira_base.mdb"_s).isEmpty());
  boites.vues.clear();
  Demarrer();
  EXPECT_EQ(boites.vues, faite);
  EXPECT_EQ(Noms(u"Velmira.mdb"_s).size(), 3000);
}

TEST_F(MiseAJourTest, EchangeQuiEchoue) {
  Installer();
  CreerAncienne(u"Velmira.mdb"_s, 3);
  PoserBaseVide(u"Velmira_base.mdb"_s);
  Poser(u"app/Alarme.ini"_s, "7,1,0,1,2\r\n");
  const QByteArray ancienne = Octets(u"Velmira.mdb"_s);
  dossiers.AppPath = Chemin(u"app"_s);
  dossiers.CheminBase = Chemin();
  {
    const ::DisquePlein plein(0);  // the settings cannot be rewritten
    EXPECT_THROW(EchangerBases(dossiers), ErreurFichier);
  }
  EXPECT_EQ(Bases(), (QStringList{u"Velmira.mdb"_s, u"Velmira_base.mdb"_s}));
  EXPECT_EQ(Octets(u"Velmira.mdb"_s), ancienne);
  EXPECT_EQ(Octets(u"app/Alarme.ini"_s), "7,1,0,1,2\r\n");
}

// Killed between the two renames: the next start finishes, in the user's folder and on a share.
TEST_F(MiseAJourTest, EchangeInterrompu) {
  const QString partage = u"DataVelmira"_s;
  ASSERT_TRUE(QDir().mkdir(Chemin(partage)));
  for (const QString &dossier : {QString(), partage + u'/'}) {
    SCOPED_TRACE(dossier.toStdString());
    Installer(dossier.isEmpty() ? QString() : Chemin(partage));
    PoserBaseVide(dossier + u"Velmira_base.mdb"_s);
    FichierNu(Chemin(dossier + u"Velmira_base.mdb"_s))
        .Executer(u"INSERT INTO Adresse (NomVelmira) VALUES ('Durand')"_s);
    Poser(dossier + u"Ancien_Velmira.mdb"_s, "ancien");
    Poser(u"app/Alarme.ini"_s, "7,1,0,1,2\r\n");
    Demarrer();
    EXPECT_EQ(boites.vues, QStringList());
    EXPECT_EQ(Noms(dossier + u"Velmira.mdb"_s), QStringList{u"Durand"_s});
    EXPECT_EQ(dossiers.Base(), Chemin(dossier + u"Velmira.mdb"_s));
    EXPECT_FALSE(Existe(dossier + u"Velmira_base.mdb"_s));
    EXPECT_EQ(Octets(dossier + u"Ancien_Velmira.mdb"_s), "ancien");
    EXPECT_EQ(Octets(u"app/Alarme.ini"_s), "1,0,2\r\n");
  }
}

// What stands at a first start: the swap is finished before any base of the application folder
// comes near it.
TEST_F(MiseAJourTest, EchangeInterrompuAuPremierDemarrage) {
  const QString donnees = u"Paul/DataTrevona/DataVelmira/"_s;
  ASSERT_TRUE(QDir().mkpath(Chemin(donnees)));
  ASSERT_TRUE(QDir().mkdir(Chemin(u"app"_s)));
  for (const QString &nom :
       {donnees + u"Velmira_base.mdb"_s, u"app/Velmira.mdb"_s, u"app/Velmira_base.mdb"_s}) {
    PoserBaseVide(nom);
    FichierNu(Chemin(nom)).Executer(u"INSERT INTO Adresse (NomVelmira) VALUES (?)"_s, {nom});
  }
  Poser(donnees + u"Ancien_Velmira.mdb"_s, "ancien");
  boites.dossier = Chemin(u"Paul"_s);
  Demarrer();
  EXPECT_EQ(Noms(donnees + u"Velmira.mdb"_s), QStringList{donnees + u"Velmira_base.mdb"_s});
  EXPECT_TRUE(Existe(u"app/Velmira.mdb"_s)) << "the other one is kept";
}

// A base of a newer schema stays whole, and the delivered one is not laid beside it, where it would
// trouble the others who share it.
TEST_F(MiseAJourTest, BasePlusRecente) {
  Installer();
  PoserBaseVide(u"Velmira.mdb"_s);
  {
    FichierNu fichier(Chemin(u"Velmira.mdb"_s));
    fichier.Executer(u"ALTER TABLE Adresse ADD COLUMN Nouvelle"_s);
    fichier.Executer(u"PRAGMA user_version=2"_s);
  }
  const QByteArray avant = Octets(u"Velmira.mdb"_s);
  for (const QString &livree : {u"app/Velmira_base.mdb"_s, u"Velmira_base.mdb"_s}) {
    PoserBaseVide(livree);
    Demarrer();
    EXPECT_EQ(boites.vues, QStringList()) << "its opening tells what there is to tell";
    EXPECT_EQ(Octets(u"Velmira.mdb"_s), avant);
    EXPECT_TRUE(Existe(livree));
    EXPECT_EQ(Bases().size(), livree.startsWith(u"app"_s) ? 1 : 2);
  }
}

// One that was left over, half written even, does not keep the delivered one from its place; with a
// user's base beside it and without.
TEST_F(MiseAJourTest, BaseLivreeQuiTraine) {
  for (const bool avecBase : {true, false}) {
    SCOPED_TRACE(avecBase);
    for (const QString &nom : {u"Velmira.mdb"_s, u"Ancien_Velmira.mdb"_s})
      QFile::remove(Chemin(nom));
    Installer();
    if (avecBase) CreerAncienne(u"Velmira.mdb"_s, 3);
    Poser(u"Velmira_base.mdb"_s, "coupée");
    Poser(u"Velmira_base.mdb-journal"_s, "d'une écriture interrompue");
    PoserBaseVide(u"app/Velmira_base.mdb"_s);
    boites.vues.clear();
    Demarrer();
    EXPECT_EQ(boites.vues, avecBase ? faite : QStringList());
    EXPECT_EQ(Noms(u"Velmira.mdb"_s).size(), avecBase ? 3 : 0);
    EXPECT_FALSE(Existe(u"app/Velmira_base.mdb"_s));
    EXPECT_FALSE(Bases().contains(u"Velmira_base.mdb"_s));
    EXPECT_FALSE(Bases().contains(u"Velmira_base.mdb-journal"_s));
  }
}

// Its flush fails: the swap is taken back, and the run has its base.
TEST_F(MiseAJourTest, EchangeQuiNeVaPasSurLeDisque) {
  Installer();
  CreerAncienne(u"Velmira.mdb"_s, 3);
  PoserBaseVide(u"Velmira_base.mdb"_s);
  const QByteArray ancienne = Octets(u"Velmira.mdb"_s);
  dossiers.AppPath = Chemin(u"app"_s);
  dossiers.CheminBase = Chemin();
  {
    const PanneDeDossier panne(EIO);
    EXPECT_THROW(EchangerBases(dossiers), ErreurFichier);
  }
  EXPECT_EQ(Bases(), (QStringList{u"Velmira.mdb"_s, u"Velmira_base.mdb"_s}));
  EXPECT_EQ(Octets(u"Velmira.mdb"_s), ancienne);
}

// The old file has been moved away by hand after a kill: what was half copied is no first base.
TEST_F(MiseAJourTest, CopieInacheveeSeule) {
  Installer();
  PoserBaseVide(u"Velmira_base.mdb"_s);
  const QByteArray vide = Octets(u"Velmira_base.mdb"_s);
  const pid_t enfant = ::fork();
  ASSERT_GE(enfant, 0);
  if (enfant == 0) {
    FichierNu fichier(Chemin(u"Velmira_base.mdb"_s));
    fichier.Executer(u"PRAGMA cache_size=5"_s);
    fichier.Executer(u"BEGIN"_s);
    for (int i = 0; i < 100; ++i)
      fichier.Executer(u"INSERT INTO Adresse (NomVelmira) VALUES (?)"_s, {QString(1000, u'n')});
    ::kill(::getpid(), SIGKILL);
  }
  int etat = 0;
  ASSERT_EQ(::waitpid(enfant, &etat, 0), enfant);
  ASSERT_TRUE(Existe(u"Velmira_base.mdb-journal"_s));
  ASSERT_NE(Octets(u"Velmira_base.mdb"_s), vide);
  Demarrer();
  EXPECT_EQ(Octets(u"Velmira.mdb"_s), vide);
  EXPECT_EQ(Bases(), QStringList{u"Velmira.mdb"_s});
}

// Two users start at once: the second finds the work done, and what the first wrote since stays.
TEST_F(MiseAJourTest, UnAutreLaFaite) {
  Installer();
  CreerAncienne(u"Velmira.mdb"_s, 3);
  PoserBaseVide(u"Velmira_base.mdb"_s);
  SourceSqlite ouverte(Chemin(u"Velmira.mdb"_s));  // before, and locked behind all that follows
  boites.pendant = [this] {
    boites.pendant = [] {};
    BoitesMuettes siennes;
    Dossiers siens;
    siens.AppPath = Chemin(u"app"_s);
    ASSERT_TRUE(Demarrage(siennes, siens, {[](const QString &) {}}).Executer());
    EXPECT_EQ(siennes.vues, faite);
    FichierNu(Chemin(u"Velmira.mdb"_s))
        .Executer(u"INSERT INTO Adresse (NomVelmira) VALUES ('Zoé')"_s);
    PoserBaseVide(u"Velmira_base.mdb"_s);  // a third user's: taken at once
  };
  Demarrer();
  EXPECT_EQ(boites.vues, faite);
  EXPECT_EQ(Noms(u"Velmira.mdb"_s).size(), 4);
  EXPECT_EQ(Noms(u"Ancien_Velmira.mdb"_s).size(), 4);
  ouverte.Reserver();
  EXPECT_FALSE(ouverte.EstEnPlace()) << "another file bears its name by now";
}

// The old program was killed in the middle of a write: that is taken back before the copy.
TEST_F(MiseAJourTest, AncienneEcritureInachevee) {
  Installer();
  CreerAncienne(u"Velmira.mdb"_s, 500);
  PoserBaseVide(u"Velmira_base.mdb"_s);
  const pid_t enfant = ::fork();
  ASSERT_GE(enfant, 0);
  if (enfant == 0) {
    FichierNu fichier(Chemin(u"Velmira.mdb"_s));
    fichier.Executer(u"PRAGMA cache_size=5"_s);
    fichier.Executer(u"BEGIN"_s);
    fichier.Executer(u"UPDATE Adresse SET NomVelmira='perdu', Commentaires=?"_s,
                     {QString(500, u'n')});
    ::kill(::getpid(), SIGKILL);
  }
  int etat = 0;
  ASSERT_EQ(::waitpid(enfant, &etat, 0), enfant);
  ASSERT_TRUE(Existe(u"Velmira.mdb-journal"_s));
  Demarrer();
  EXPECT_EQ(boites.vues, faite);
  EXPECT_EQ(Noms(u"Velmira.mdb"_s).size(), 500);
  EXPECT_FALSE(Noms(u"Velmira.mdb"_s).contains(u"perdu"_s));
  EXPECT_EQ(Bases(), (QStringList{u"Ancien_Velmira.mdb"_s, u"Velmira.mdb"_s}));
}
