// The exchange file: what is written, which names are one, what suits a field, files that are cut.

#include "Outils.h"
#include "exchange/EchangeTexte.h"
#include "platform/PageDeCode.h"
#include "storage/Requete.h"

static const Avance kSansArret = [](qsizetype, qsizetype) { return true; };
static const Avance kArret = [](qsizetype, qsizetype) { return false; };

/// A record of the file; lines that are not named are empty.
static QByteArray Fiche(const QString &nom, const QMap<int, QString> &lignes = {}) {
  QString texte = u'*' + nom;
  for (int ligne = 2; ligne <= 24; ++ligne) texte += u"\r\n"_s + lignes.value(ligne);
  return VersPageDeCode(texte + u"\r\n"_s);
}

class Echange : public DansUnDossier {
 protected:
  Echange() { Neuve(); }
  void Neuve() {
    CreerBase(u"a"_s);
    base.Ouvrir(Chemin(u"a"_s));
    Requete(base, u"PRAGMA synchronous=OFF"_s).Executer();
  }
  BilanImport Importer(const QByteArray &octets, const Avance &avance = kSansArret) {
    return ImporterVelmiras(base, octets, avance);
  }
  QString Lire(const QString &champs) const {
    return Sql(u"a"_s, u"SELECT %1 FROM Adresse ORDER BY [Index]"_s.arg(champs));
  }
  Base base;
};

// A thousand records are a block; what was written of an import that is stopped stays.
TEST_F(Echange, AllerEtRetour) {
  Sql(u"a"_s,
      u"WITH s(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM s WHERE i<1000) INSERT INTO Adresse "
      "(NomVelmira, Ligne1, Pays, OptionAdresse) SELECT 'Élo'||i, NULL, '?', 1 FROM s UNION ALL "
      "SELECT 'Luc', 'a' || char(10) || 'b' || char(13,10), 'VraiFaux', 0"_s);
  const auto exportation = ExporterVelmiras(base, kSansArret);
  EXPECT_EQ(exportation->coupees * 10 + exportation->remplaces, 10);
  EXPECT_FALSE(ExporterVelmiras(base, kArret));
  Neuve();
  EXPECT_TRUE(Importer(exportation->octets, kArret).arrete);
  EXPECT_EQ(TableAdresse(base).Nombre(), 1000);
  EXPECT_FALSE(Importer(Fiche(u"Élo1"_s), kArret).arrete) << "nothing is left";
  for (int i = 0; i < 2; ++i) {  // the rest, and once more into itself
    EXPECT_EQ(Importer(exportation->octets).traites, 1001);
    EXPECT_EQ(ExporterVelmiras(base, kSansArret)->octets, exportation->octets);
  }
}

// The name of the table and of the file; whether they are one.
TEST_F(Echange, Fusion) {
  Cas(R"(
    O"Brien | o"brien | oui || L'Été; DROP | l'été; drop | oui || derrière· | derrière | non
    ·devant | devant | non || Weiss | Weiß | non || Weiß | WEIß | oui || A*B | a*b | oui || % | _ | non
    | ·· | oui || Dvořák | Dvo?ák | oui || Łab | ?ab | oui || Иван | ???? | non || Qui ? | Qui ? | oui
  )",
      [this](Rangee c) {
        Neuve();
        Requete(base, u"INSERT INTO Adresse (NomVelmira) VALUES (?)"_s).Lier(c[0]).Executer();
        EXPECT_EQ(Importer(Fiche(c[1], {{8, u"N"_s}})).douteux.isEmpty(), c[1] != u"????"_s);
        return OuiNon(Lire(u"ifnull(Ville, '')"_s) == u"N"_s);
      });
  Neuve();  // gaps are filled in the first of a name
  Sql(u"a"_s,
      u"INSERT INTO Adresse (NomVelmira, Tel) VALUES ('Elo', ''), ('Elo', NULL), ('L', NULL), (NULL, NULL)"_s);
  Importer(Fiche(u" ELO "_s, {{11, u"T"_s}, {20, u"1"_s}}) + Fiche(u"l"_s, {{11, u"T"_s}}) +
           Fiche({}));
  EXPECT_EQ(Lire(u"NomVelmira, Tel, ListeRougeTel"_s),
            u"Elo|T|nul Elo|nul|nul L|T|nul nul|nul|nul ||0"_s);
}

// Whatever is cut off or damaged: the next record is found, half of one is not taken.
TEST_F(Echange, FichierAbime) {
  const QByteArray un = Fiche(u"Un"_s, {{24, u"True"_s}}), deux = Fiche(u"Deux"_s, {{24, u"0"_s}});
  for (qsizetype n = 0; n <= un.size() + deux.size(); ++n) {
    Neuve();
    const BilanImport bilan = Importer((un + deux).left(n));
    const int entieres = (n >= un.size() - 2) + (n >= un.size() + deux.size() - 2);
    EXPECT_EQ(Lire(u"NomVelmira"_s), u"Un Deux"_s.left(entieres == 0 ? 0 : entieres * 5 - 3)) << n;
    EXPECT_EQ(bilan.traites, entieres);
    EXPECT_EQ(bilan.coupe.has_value(), entieres < 2 && n > entieres * un.size()) << n;
  }
  Neuve();
  Importer("\r\nreste\r\n" + un + "\r\nTrue\r\n" +
           QByteArray(deux).replace("\r\n", "\n").chopped(1));
  Importer(Fiche(u"Trois"_s, {{24, u"Vrai"_s}}).replace("\r\n", "\r"));
  EXPECT_EQ(Lire(u"NomVelmira, AlerteActive"_s), u"Un|1 Deux|0 Trois|1"_s);
  // Line, its text; what is stored, or the field that it does not suit.
  Cas(R"(
    16 | | 0 || 16 | 255 | 255 || 16 | 256 | OptionAdresse || 16 | -1 | OptionAdresse || 20 | | 0
    16 | 1,5 | OptionAdresse || 20 | vrai | 1 || 20 | -1 | 1 || 20 | 1 | 1 || 20 | 0 | 0
    20 | Faux | 0 || 20 | Oui | ListeRougeTel || 21 | 2 | ListeRougeTravail || 24 | x | AlerteActive
  )",
      [&](Rangee c) {
        Neuve();
        const QString echec = Echec([&] {
          Importer(Fiche(u"Avant"_s) + Fiche(u"Ici"_s, {{c[0].toInt(), c[1]}}) + un);
        });
        EXPECT_EQ(Lire(u"NomVelmira"_s), echec.isEmpty() ? u"Avant Ici Un"_s : u"Avant"_s);
        return echec.isEmpty() ? Lire(u"OptionAdresse + ListeRougeTel"_s).section(u' ', 1, 1)
                               : echec.section(u" champ "_s, 1).section(u' ', 0, 0);
      });
}
