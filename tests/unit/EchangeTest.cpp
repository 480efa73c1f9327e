// The exchange file: what is written, which names are one, what suits a field, files that are cut.

#include "Outils.h"
#include "exchange/EchangeTexte.h"
#include "platform/PageDeCode.h"
#include "storage/Requete.h"

namespace {

bool SansArret(qsizetype, qsizetype) {
  return true;
}

/// A record of the file: lines that are not named are empty, booleans false.
QByteArray Fiche(const QString &nom, const QMap<int, QString> &lignes = {}) {
  QString texte = u'*' + nom + u"\r\n"_s;
  for (int ligne = 2; ligne <= 24; ++ligne) {
    const bool booleen = ligne == 20 || ligne == 21 || ligne == 24;
    texte += lignes.value(ligne, booleen ? u"False"_s : u""_s) + u"\r\n"_s;
  }
  return VersPageDeCode(texte);
}

class Echange : public DansUnDossier {
 protected:
  Echange() { Neuve(); }
  void Neuve() {
    CreerBase(u"a"_s);
    base.Ouvrir(Chemin(u"a"_s));
    Requete(base, u"PRAGMA synchronous=OFF"_s).Executer();
  }
  BilanImport Importer(const QByteArray &octets) {
    return ImporterVelmiras(base, octets, SansArret);
  }
  QString Lire(const QString &champs) const {
    return Sql(u"a"_s, u"SELECT %1 FROM Adresse ORDER BY [Index]"_s.arg(champs));
  }
  Base base;
};

}  // namespace

TEST_F(Echange, OrdreDesLignes) {
  Sql(u"a"_s,
      u"INSERT INTO Adresse VALUES (1,'1','2','3','4','5','cp','Fauxville','VraiFauxfaux','*A*',"
      "'Élo','tel','fax','mail','notes','port','imp',1,'日','trav','photo',1,0,'ddn','Paul$',1),"
      "(2,'a' || char(10) || 'b' || char(13,10),'?','','','','','','','','Nul','','','','','','',0,"
      "'','','',0,0,'','',0)"_s);
  const auto exportation = ExporterVelmiras(base, SansArret);
  EXPECT_EQ(DepuisPageDeCode(exportation->octets).replace(u"\r\n"_s, u"/"_s),
            u"*Élo/1/2/3/4/5/cp/Falseville/TrueFalsefaux/*A*/tel/fax/mail/port/imp/1/?/trav/photo/"
            "True/False/ddn/Paul$/True/*Nul/a b /?/////////////0////False/False///False//"_s);
  EXPECT_EQ(exportation->coupees * 10 + exportation->remplaces, 11);
  Neuve();  // into another base, and once more into itself
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Importer(exportation->octets).traites, 2);
    EXPECT_EQ(ExporterVelmiras(base, SansArret)->octets, exportation->octets);
  }
}

// The name of the table and of the file; whether they are one.
TEST_F(Echange, Fusion) {
  Cas(R"(
    O"Brien | o"brien | oui || L'Été; DROP | l'été; drop | oui || derrière· | derrière | non
    ·devant | devant | non || Weiss | Weiß | non || Weiß | WEIß | oui || A*B | a*b | oui || % | _ | non
    | ·· | oui || ∅ | | non || Dvořák | Dvo?ák | oui || Иван | ???? | non || Qui ? | Qui ? | oui
  )",
      [this](Rangee c) {
        Neuve();
        Correspondant v;
        v.NomVelmira = c[0];
        AjouterLigne(base, v);
        EXPECT_EQ(Importer(Fiche(c[1], {{8, u"N"_s}})).douteux.isEmpty(), c[1] != u"????"_s);
        return OuiNon(Lire(u"ifnull(Ville, '')"_s) == u"N"_s);
      });
  Neuve();  // gaps are filled in the first of a name; a value stays
  Sql(u"a"_s,
      u"INSERT INTO Adresse (NomVelmira, Ligne1, Tel, OptionAdresse, ListeRougeTel) VALUES "
      "('Elo', 'garder', '', 0, 0), ('Elo', NULL, NULL, NULL, 0), ('Luc', NULL, NULL, NULL, 0)"_s);
  const QMap<int, QString> lignes{{2, u"L"_s}, {11, u"T"_s}, {16, u"1"_s}, {20, u"True"_s}};
  Importer(Fiche(u" ELO "_s, lignes) + Fiche(u"luc"_s, lignes) + Fiche(u"Zoé"_s) +
           Fiche(u"ZOÉ"_s, {{8, u"Lyon"_s}}));
  EXPECT_EQ(Lire(u"NomVelmira, Ligne1, Tel, OptionAdresse, ListeRougeTel, Ville"_s),
            u"Elo|garder|T|0|0| Elo|nul|nul|nul|0|nul Luc|L|T|1|0| Zoé|||0|0|Lyon"_s);
}

// Whatever is cut off or damaged: the next record is found, half of one is not taken.
TEST_F(Echange, FichierAbime) {
  const QByteArray un = Fiche(u"Un"_s, {{24, u"True"_s}}), deux = Fiche(u"Deux"_s, {{2, u"L"_s}});
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
        if (!echec.isEmpty()) {
          EXPECT_TRUE(echec.startsWith(
              u"La ligne %1 du fichier, « %2 », ne convient pas au champ %3 du velmira « Ici »."_s
                  .arg(QString::number(24 + c[0].toInt()), c[1], c[2])));
          EXPECT_EQ(Lire(u"NomVelmira"_s), u"Avant"_s);
          return c[2];
        }
        return Lire(c[0] == u"16"_s ? u"OptionAdresse"_s : u"ListeRougeTel"_s).section(u' ', 1, 1);
      });
}
