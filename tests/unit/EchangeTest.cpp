// The exchange file: what is written, what a merge changes and leaves, damaged files.

#include "Outils.h"
#include "exchange/EchangeTexte.h"
#include "platform/PageDeCode.h"
#include "storage/Requete.h"
#include "storage/Schema.h"
#include "storage/Tables.h"

#include <QRandomGenerator>
#include <QSet>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

bool SansArret(qsizetype, qsizetype) {
  return true;
}

/// A record of the file: lines that are not named are empty, booleans false.
QByteArray Fiche(const QByteArray &nom, const QMap<int, QByteArray> &lignes = {}) {
  QByteArray octets = '*' + nom + "\r\n";
  for (int ligne = 2; ligne <= 24; ++ligne) {
    const bool booleen = ligne == 20 || ligne == 21 || ligne == 24;
    octets += lignes.value(ligne, booleen ? "False" : "") + "\r\n";
  }
  return octets;
}

class EchangeTest : public DansUnDossier {
 protected:
  EchangeTest() {
    CreerBaseVide(Chemin(u"Velmira.mdb"_s));
    base_.Ouvrir(Chemin(u"Velmira.mdb"_s));
  }

  BilanImport Importer(const QByteArray &octets) {
    return ImporterVelmiras(base_, octets, SansArret);
  }
  QByteArray Exporter() { return ExporterVelmiras(base_, SansArret).value().octets; }
  Cle Ajouter(const Correspondant &velmira) { return AjouterLigne(base_, velmira); }
  Correspondant Lire(Cle index) {
    return TableAdresse(base_).Lire(index).value_or(Correspondant());
  }
  QStringList Noms() {
    QStringList noms;
    TableAdresse(base_).PourChaque([&](EntreeListe &&e) { noms.append(e.NomVelmira); });
    return noms;
  }

  Base base_;
};

/// Any character of the code page that does not end a line.
QString TexteAuHasard(QRandomGenerator &hasard, int taille) {
  QByteArray octets;
  while (octets.size() < taille)
    if (const auto c = static_cast<char>(hasard.bounded(256)); c != '\r' && c != '\n') octets += c;
  return DepuisPageDeCode(octets);
}

}  // namespace

TEST_F(EchangeTest, OrdreDesLignes) {
  EXPECT_EQ(Exporter(), "\r\n");
  Correspondant v;
  v.NomVelmira = u"Élo"_s;
  v.Ligne1 = u"1"_s, v.Ligne2 = u"2"_s, v.Ligne3 = u"3"_s, v.Ligne4 = u"4"_s, v.Ligne5 = u"5"_s;
  v.CodePostal = u"cp"_s, v.Ville = u"Fauxville"_s, v.Pays = u"VraiFauxfaux"_s;
  v.Categories = u"*Amis*"_s, v.Tel = u"tel"_s, v.Fax = u"fax"_s, v.Mail = u"mail"_s;
  v.Commentaires = u"notes"_s, v.Portable = u"port"_s, v.AdresseImportee = u"imp"_s;
  v.OptionAdresse = 1, v.Web = u"日"_s, v.TelTravail = u"trav"_s, v.Photo = u"photo"_s;
  v.ListeRougeTel = true, v.DDN = u"01/02/2003"_s, v.DataProt = u"Paul$"_s, v.AlerteActive = true;
  Ajouter(v);
  Correspondant nul;
  nul.NomVelmira = u"Nul"_s;
  Ajouter(nul);
  const QByteArray elo =
      "*\xC9lo\r\n1\r\n2\r\n3\r\n4\r\n5\r\ncp\r\nFalseville\r\nTrueFalsefaux\r\n*Amis*\r\n"
      "tel\r\nfax\r\nmail\r\nport\r\nimp\r\n1\r\n?\r\ntrav\r\nphoto\r\nTrue\r\nFalse\r\n"
      "01/02/2003\r\nPaul$\r\nTrue\r\n";
  EXPECT_EQ(Exporter(), elo + Fiche("Nul", {{16, "0"}}) + "\r\n");
}

TEST_F(EchangeTest, AllerEtRetour) {
  QRandomGenerator hasard(20260605);
  const auto texte = [&] { return TexteAuHasard(hasard, hasard.bounded(12)); };
  const auto oui = [&] { return hasard.bounded(2) == 1; };
  {
    Transaction transaction(base_);
    for (int i = 0; i < 5000; ++i) {
      Correspondant v;
      v.NomVelmira = u'N' + QString::number(i) + u'.' + texte() + u'.';
      for (auto champ : {&Correspondant::Ligne1, &Correspondant::Ligne2, &Correspondant::Ligne3,
                         &Correspondant::Ligne4, &Correspondant::Ligne5, &Correspondant::CodePostal,
                         &Correspondant::Ville, &Correspondant::Pays, &Correspondant::Categories,
                         &Correspondant::Tel, &Correspondant::Fax, &Correspondant::Mail,
                         &Correspondant::Portable, &Correspondant::AdresseImportee,
                         &Correspondant::Web, &Correspondant::TelTravail, &Correspondant::Photo,
                         &Correspondant::DDN, &Correspondant::DataProt})
        if (oui()) v.*champ = texte();
      v.OptionAdresse = hasard.bounded(256);
      v.ListeRougeTel = oui(), v.ListeRougeTravail = oui(), v.AlerteActive = oui();
      Ajouter(v);
    }
    transaction.Valider();
  }
  const QByteArray octets = Exporter();
  EXPECT_EQ(octets.count('\n'), 5000 * 24 + 1);

  CreerBaseVide(Chemin(u"autre.mdb"_s));
  Base autre;
  autre.Ouvrir(Chemin(u"autre.mdb"_s));
  QList<qsizetype> avances;
  const BilanImport bilan = ImporterVelmiras(autre, octets, [&](qsizetype fait, qsizetype total) {
    EXPECT_EQ(total, octets.size());
    avances.append(fait);
    return true;
  });
  EXPECT_EQ(bilan.traites, 5000);
  EXPECT_FALSE(bilan.arrete);
  EXPECT_TRUE(std::is_sorted(avances.begin(), avances.end()));
  EXPECT_EQ(avances.value(avances.size() - 1), octets.size());
  EXPECT_TRUE(ExporterVelmiras(autre, SansArret)->octets == octets);

  const BilanImport encore = ImporterVelmiras(autre, octets, SansArret);
  EXPECT_EQ(encore.traites, 5000);
  EXPECT_TRUE(ExporterVelmiras(autre, SansArret)->octets == octets) << "merged into itself";
}

TEST_F(EchangeTest, FusionRemplitLesManques) {
  Correspondant present;
  present.NomVelmira = u"Durand Élo"_s;
  present.Ligne1 = u"à garder"_s;
  present.Tel = u""_s;
  present.Commentaires = u"notes"_s;
  const Cle durand = Ajouter(present);
  present.Ligne1 = u"autre"_s;
  const Cle homonyme = Ajouter(present);
  Requete(base_, u"UPDATE Adresse SET OptionAdresse=NULL WHERE [Index]=?"_s)
      .Lier(homonyme)
      .Executer();

  Importer(Fiche("  dURAND \xC9LO ", {{2, "nouveau"},
                                      {7, "44000"},
                                      {11, "01 02"},
                                      {16, "1"},
                                      {20, "True"},
                                      {24, "n'importe quoi"}}));
  EXPECT_EQ(Noms(), QStringList({u"Durand Élo"_s, u"Durand Élo"_s}));
  Correspondant lu = Lire(durand);
  EXPECT_EQ(lu.Ligne1, u"à garder"_s);
  EXPECT_EQ(lu.CodePostal, u"44000"_s);
  EXPECT_EQ(lu.Tel, u"01 02"_s);
  EXPECT_EQ(lu.Commentaires, u"notes"_s);
  EXPECT_EQ(lu.OptionAdresse, 0) << "a value, not a gap";
  EXPECT_FALSE(lu.ListeRougeTel);
  EXPECT_FALSE(lu.Ville.isNull()) << "an empty line is put into a null field";
  EXPECT_TRUE(Lire(homonyme).CodePostal.isNull());

  Requete(base_, u"DELETE FROM Adresse WHERE [Index]=?"_s).Lier(durand).Executer();
  Importer(Fiche("Durand \xE9lo", {{16, "1"}}));
  EXPECT_EQ(Lire(homonyme).OptionAdresse, 1) << "null is a gap";
}

TEST_F(EchangeTest, NomsReconnus) {
  const struct {
    const char16_t *present;
    QByteArray fichier;
    bool reconnu;
  } cas[] = {
      {u"O\"Brien", "o\"brien", true},
      {u"L'Été; DROP", "l'\xE9t\xE9; drop", true},
      {u"derrière ", "derri\xE8re ", false},  // the table's blank stays, the file's goes
      {u" devant", "devant", false},
      {u"Tab\t", "TAB\t", true},
      {u"Weiss", "Wei\xDF", false},
      {u"Wei\u00DF", "WEI\xDF", true},
      {u"A*B", "a*b", true},
      {u"%", "_", false},
      {u"", "  ", true},
      {nullptr, "", false},
  };
  for (const auto &c : cas) {
    SCOPED_TRACE(c.fichier.toStdString());
    Requete(base_, u"DELETE FROM Adresse"_s).Executer();
    Correspondant v;
    v.NomVelmira = QString::fromUtf16(c.present);
    const Cle index = Ajouter(v);
    Importer(Fiche(c.fichier, {{8, "Nantes"}}));
    EXPECT_EQ(Noms().size(), c.reconnu ? 1 : 2);
    EXPECT_EQ(Lire(index).Ville, c.reconnu ? u"Nantes"_s : QString());
  }
  // A name that the file has added is known to the records behind it.
  Importer(Fiche("Double") + Fiche("DOUBLE", {{8, "Lyon"}}) + Fiche("double", {{8, "Lille"}}));
  EXPECT_EQ(Noms().count(u"Double"_s), 1);
  EXPECT_EQ(Exporter().count("Lyon"), 1);
  EXPECT_EQ(Exporter().count("Lille"), 0);
}

// What the file cannot hold is counted, shifts nothing, and comes back to who it came from.
TEST_F(EchangeTest, ValeursQueLeFichierNeTientPas) {
  const QStringList noms{u"Dvo\u0159ák"_s, u"Durand\r\nPaul"_s, u"Faux Jean"_s, u"Иван"_s,
                         u"Ma\u0159a"_s,   u"Ma\u010Da"_s,      u"Qui ?"_s};
  for (const QString &nom : noms) {
    Correspondant v;
    v.NomVelmira = nom;
    if (nom == noms[0]) v.Ligne1 = u"a\nb\rc\r\n\n?"_s, v.Ville = u"\U0001F600 ?"_s;
    Ajouter(v);
  }
  const auto exportation = ExporterVelmiras(base_, SansArret);
  EXPECT_EQ(exportation->coupees, 2);
  EXPECT_EQ(exportation->remplaces, 1 + 1 + 4 + 1 + 1);
  EXPECT_TRUE(exportation->octets.startsWith("*Dvo?\xE1k\r\na b c  ?\r\n"));
  EXPECT_EQ(exportation->octets.count("\r\n"), 24 * noms.size() + 1);

  const BilanImport bilan = Importer(exportation->octets);
  EXPECT_EQ(bilan.douteux, QStringList({u"????"_s, u"Ma?a"_s}))
      << "nothing left to know one by, one of two";
  EXPECT_EQ(Noms(), noms + bilan.douteux);
}

// The reader finds the next record behind any damage, and never fails on a file that ends early.
// What the end has cut off comes whole or not at all.
TEST_F(EchangeTest, FichierCoupe) {
  const auto fiches = [](const QByteArray &nom) {
    return Fiche(nom, {{2, "L1"}, {8, "Nantes"}, {16, "1"}, {20, "True"}, {23, "Paul$"}});
  };
  const QByteArray entier = fiches("Un") + fiches("Deux") + "\r\n";
  const qsizetype un = fiches("Un").size(), deux = un + fiches("Deux").size();
  for (qsizetype n = 0; n <= entier.size(); ++n) {
    SCOPED_TRACE(n);
    Requete(base_, u"DELETE FROM Adresse"_s).Executer();
    const BilanImport bilan = Importer(entier.left(n));
    const int entieres = n >= deux - 2 ? 2 : n >= un - 2 ? 1 : 0;  // the last line end may lack
    EXPECT_EQ(bilan.traites, entieres);
    EXPECT_EQ(Noms(), (QStringList{u"Un"_s, u"Deux"_s}.mid(0, entieres)));
    EXPECT_EQ(bilan.coupe.has_value(), (n > 0 && n < un - 2) || (n > un && n < deux - 2));
    if (bilan.coupe && n > un + 6) {
      EXPECT_EQ(bilan.coupe, u"Deux"_s);
    }
  }
}
TEST_F(EchangeTest, FichierAbime) {
  Importer("\r\nun reste\r\n" + Fiche("A") + "\r\n\r\nTrue\r\n" + Fiche("B"));
  EXPECT_EQ(Noms(), QStringList({u"A"_s, u"B"_s}));
  // Lines of Unix and of old Mac, no last line end.
  QByteArray ligneSimple = Fiche("C", {{24, "True"}}).replace("\r\n", "\n");
  ligneSimple.chop(1);
  Importer(ligneSimple);
  Importer(Fiche("D", {{24, "True"}}).replace("\r\n", "\r"));
  EXPECT_EQ(Noms().size(), 4);
  EXPECT_TRUE(Lire(3).AlerteActive && Lire(4).AlerteActive);

  const QByteArray long1 = QByteArray(1 << 20, 'x');
  Importer(long1 + "\r\n" + Fiche(long1, {{8, long1}}) + Fiche("E"));
  EXPECT_EQ(Noms().size(), 6);
  EXPECT_EQ(Lire(5).Ville.size(), 1 << 20);
  EXPECT_THROW(Importer(Fiche("F", {{16, long1}})), ErreurFichier);
  EXPECT_EQ(Importer(QByteArray()).traites, 0);
}

TEST_F(EchangeTest, Valeurs) {
  const struct {
    int ligne;
    QByteArray texte;
    int valeur;  // -1: does not suit
  } cas[] = {
      {16, "", 0},     {16, "0", 0},    {16, "255", 255}, {16, "256", -1},  {16, "-1", -1},
      {16, "1,5", -1}, {16, "a", -1},   {16, "True", -1}, {20, "True", 1},  {20, "Vrai", 1},
      {20, "-1", 1},   {20, "1", 1},    {20, "", 0},      {20, "False", 0}, {20, "Faux", 0},
      {20, "0", 0},    {20, "Oui", -1}, {21, "2", -1},    {24, "x", -1},
  };
  for (const auto &c : cas) {
    SCOPED_TRACE(std::to_string(c.ligne) + " " + c.texte.toStdString());
    Requete(base_, u"DELETE FROM Adresse"_s).Executer();
    const QByteArray octets = Fiche("Avant") + Fiche("Ici", {{c.ligne, c.texte}}) + Fiche("Apres");
    if (c.valeur < 0) {
      try {
        Importer(octets);
        ADD_FAILURE() << "accepted";
      } catch (const ErreurFichier &erreur) {
        const QString champ = c.ligne == 16   ? u"OptionAdresse"_s
                              : c.ligne == 20 ? u"ListeRougeTel"_s
                              : c.ligne == 21 ? u"ListeRougeTravail"_s
                                              : u"AlerteActive"_s;
        EXPECT_EQ(
            erreur.Texte().section(u'\n', 0, 0),
            u"La ligne %1 du fichier, « %2 », ne convient pas au champ %3 du velmira « Ici »."_s
                .arg(QString::number(24 + c.ligne), DepuisPageDeCode(c.texte), champ));
      }
      EXPECT_EQ(Noms(), QStringList{u"Avant"_s});
    } else {
      Importer(octets);
      qint64 milieu = 0;
      TableAdresse(base_).PourChaque([&](EntreeListe &&e) {
        if (e.NomVelmira == u"Ici"_s) milieu = e.Index;
      });
      const Correspondant v = Lire(milieu);
      EXPECT_EQ(c.ligne == 16 ? v.OptionAdresse : v.ListeRougeTel, c.valeur);
      EXPECT_EQ(Noms().size(), 3);
    }
  }
}

TEST_F(EchangeTest, Arret) {
  QByteArray octets;
  for (int i = 0; i < 1200; ++i) octets += Fiche(QByteArray::number(i));
  int appels = 0;
  const auto arreter = [&](qsizetype, qsizetype) {
    ++appels;
    return false;
  };
  const BilanImport bilan = ImporterVelmiras(base_, octets, arreter);
  EXPECT_TRUE(bilan.arrete);
  EXPECT_GT(bilan.traites, 0);
  EXPECT_LT(bilan.traites, 1200);
  EXPECT_EQ(Noms().size(), bilan.traites) << "what was imported stays";
  EXPECT_EQ(appels, 1);
  EXPECT_FALSE(ImporterVelmiras(base_, Fiche("un de plus"), arreter).arrete)
      << "nothing was left to stop";

  Importer(octets);
  EXPECT_EQ(Noms().size(), 1201);
  EXPECT_FALSE(ExporterVelmiras(base_, arreter));
}

// Between two blocks of an import another one runs whole, and a user renames two records.
TEST_F(EchangeTest, DeuxALaFois) {
  const Cle connu = Ajouter([] {
    Correspondant v;
    v.NomVelmira = u"1100"_s;
    return v;
  }());
  QByteArray octets;
  for (int i = 0; i < 1200; ++i) octets += Fiche(QByteArray::number(i), {{8, "Nantes"}});
  bool premier = true;
  ImporterVelmiras(base_, octets + Fiche("plus tard"), [&](qsizetype, qsizetype) {
    if (!std::exchange(premier, false)) return true;
    Base autre;
    autre.Ouvrir(Chemin(u"Velmira.mdb"_s));
    ImporterVelmiras(autre, octets + Fiche("encore"), SansArret);
    Requete(autre, u"UPDATE Adresse SET NomVelmira='Durand', Ville='' WHERE [Index]=?"_s)
        .Lier(connu)
        .Executer();
    Requete(autre, u"UPDATE Adresse SET NomVelmira='Plus tard' WHERE NomVelmira='5'"_s).Executer();
    return true;
  });
  const QStringList noms = Noms();
  EXPECT_EQ(noms.size(), 1202);
  EXPECT_EQ(QSet<QString>(noms.begin(), noms.end()).size(), 1202);
  EXPECT_FALSE(noms.contains(u"plus tard"_s)) << "it has got the name that comes";
  EXPECT_EQ(Lire(connu).Ville, u""_s) << "a renamed record is another one";
}
