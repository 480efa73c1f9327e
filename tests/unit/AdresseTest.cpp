// Address strings, their lines, the default sender, the printing key.

#include "Outils.h"
#include "address/ChaineAdresse.h"
#include "address/MiseEnLignes.h"
#include "address/Titres.h"
#include "envelope/ExpediteurDefaut.h"
#include "envelope/Raccourci.h"
#include "storage/Requete.h"
#include "storage/Schema.h"
#include "storage/Tables.h"

using namespace Qt::StringLiterals;

TEST(ChaineAdresseTest, Blocs) {
  const auto chaine = [](const AdresseSaisie &adresse) { return ComposerAdresse(adresse).chaine; };
  EXPECT_EQ(chaine({}), u" $ $ "_s);
  EXPECT_EQ(chaine({.lignes = {u""_s, QString()}, .codePostal = u""_s}), u" $ $ "_s);
  EXPECT_EQ(chaine({.lignes = {u""_s, u"A"_s, QString(), u"B"_s}}), u"A*B$ $ "_s);
  EXPECT_EQ(chaine({.codePostal = u"44000"_s}), u" $44000$ "_s);
  EXPECT_EQ(chaine({.ville = u"Nantes"_s}), u" $Nantes$ "_s);
  EXPECT_EQ(chaine({.pays = u"Belgique"_s}), u" $ $Belgique"_s);

  Correspondant durand;
  EXPECT_EQ(chaine(AdresseSaisie::De(durand)), u" $ $ "_s);
  durand.Ligne1 = u"M. Paul Durand"_s;
  durand.Ligne3 = u"12 rue des Lilas"_s;
  durand.Ligne5 = u"Bât. B"_s;
  durand.CodePostal = u"44000"_s;
  durand.Ville = u"Nantes"_s;
  EXPECT_EQ(chaine(AdresseSaisie::De(durand)),
            u"M. Paul Durand*12 rue des Lilas*Bât. B$44000*Nantes$ "_s);

  for (const QString &vide : {QString(), u""_s, u" $ $ "_s}) EXPECT_TRUE(AdresseVide(vide));
  for (const QString &pleine : {u"A$ $ "_s, u" $1$ "_s, u" $ $B"_s})
    EXPECT_FALSE(AdresseVide(pleine));
}

// Options: L a blank line after every line, P after the first, D before the last, V town in front.
TEST(MiseEnLignesTest, Lignes) {
  struct Cas {
    const char16_t *chaine, *options, *texte;
    bool pays = false;
  };
  const Cas destinataires[] = {
      {u"M. Dupont*3 rue Haute$44000*Nantes$ ", u"", u"M. Dupont*3 rue Haute*44000 - Nantes"},
      {u"M. Dupont$44000*Nantes$Belgique", u"", u"M. Dupont*44000 - Nantes**Belgique", true},
      {u"M. Dupont*3 rue Haute$44000*Nantes$ ", u"D", u"M. Dupont*3 rue Haute**44000 - Nantes"},
      {u"A*B*C$1*V$ ", u"", u"A*B*C*1 - V"},
      {u"A*B*C$1*V$ ", u"L", u"A**B**C**1 - V"},
      {u"A*B*C$1*V$ ", u"P", u"A**B*C*1 - V"},
      {u"A*B*C$1*V$ ", u"D", u"A*B*C**1 - V"},
      {u"A*B*C$1*V$ ", u"PD", u"A**B*C**1 - V"},
      {u"A*B*C$1*V$ ", u"LPD", u"A**B**C**1 - V"},
      {u"A*B$1*V$Pays", u"L", u"A**B**1 - V**Pays", true},
      {u"A$1*V$ ", u"", u"A*1 - V"},
      {u"A$1*V$ ", u"L", u"A**1 - V"},
      {u"A$1*V$ ", u"P", u"A**1 - V"},
      {u"A$1*V$ ", u"D", u"A**1 - V"},
      {u"A$1*V$ ", u"V", u"A*V - 1"},
      {u"A$44000$ ", u"V", u"A*44000"},
      {u"A$Nantes$ ", u"", u"A*Nantes"},
      {u"A$1*V*W$ ", u"", u"A*1 - V"},
      // no postal line
      {u"A*B$ $ ", u"", u"A*B"},
      {u"A*B$ $ ", u"D", u"A*B"},
      {u"A$ $ ", u"D", u"A"},
      {u"A$ $Pays", u"", u"A**Pays", true},
      {u"A$ $Pays", u"LPD", u"A**Pays", true},
      {u"A*B$ $Pays", u"P", u"A**B**Pays", true},
      // no head lines
      {u" $1*V$ ", u"LPD", u"1 - V"},
      {u" $1*V$Pays", u"", u"1 - V**Pays", true},
      {u" $ $Pays", u"", u"**Pays", true},
      {u" $ $ ", u"LPD", u""},
      {u"", u"LPD", u""},
      // damaged: blocks missing, too many, empty instead of blank
      {u"A", u"", u"A"},
      {u"A*B", u"P", u"A**B"},
      {u"A$1*V", u"", u"A*1 - V"},
      {u"A$1*V$Pays$x", u"", u"A*1 - V**Pays", true},
      {u"$$Pays", u"", u"*Pays", true},
  };
  const Cas expediteurs[] = {
      {u"A*B*C$1*V$ ", u"LPD", u"A*B*C*1 - V"},
      {u"A*B$1*V$ ", u"V", u"A*B*V - 1"},
      {u"A$1*V$Pays", u"LPD", u"A*1 - V*Pays", true},
      {u"A$ $Pays", u"", u"A**Pays", true},
      {u"A$ $ ", u"", u"A*"},
      {u"", u"", u""},
  };
  const auto verifier = [](const Cas &c, Role role) {
    const QString o = QString::fromUtf16(c.options);
    const OptionsLignes options{o.contains(u'L'), o.contains(u'P'), o.contains(u'D'),
                                OptionDe(o.contains(u'V')), u" - "_s};
    const auto lignes = MettreEnLignes(QString::fromUtf16(c.chaine), role, options);
    const auto trace = QString::fromUtf16(c.chaine).toStdString() + " " + o.toStdString();
    EXPECT_EQ(lignes.texte, QString::fromUtf16(c.texte)) << trace;
    EXPECT_EQ(lignes.paysPresent, c.pays) << trace;
  };
  for (const auto &c : destinataires) verifier(c, Role::Destinataire);
  for (const auto &c : expediteurs) verifier(c, Role::Expediteur);
}

TEST(MiseEnLignesTest, OptionsDuProgramme) {
  Reglages r;
  r.LiaisonCP = u", "_s;
  const auto lignes = [&r](const char16_t *chaine, OptionCP option, Role role) {
    return MettreEnLignes({QString::fromUtf16(chaine), option}, role, r).texte;
  };
  r.plomex.SautPLigne = true;
  EXPECT_EQ(lignes(u"A*B$1*V$Pays", OptionCP::VilleDevant, Role::Destinataire),
            u"A**B*V, 1**Pays"_s);
  EXPECT_EQ(lignes(u"A*B$1*V$ ", OptionCP::CodeDevant, Role::Expediteur), u"A*B*1, V"_s);
  r.plomex = {};
  r.plomex.SautDLigne = true;
  EXPECT_EQ(lignes(u"A*B*C$1*V$ ", OptionCP::CodeDevant, Role::Destinataire), u"A*B*C**1, V"_s);
  r.plomex = {};
  r.plomex.SautLigne = Drapeau::DepuisNombre(7);
  EXPECT_EQ(lignes(u"A*B*C$1*V$ ", OptionCP::CodeDevant, Role::Destinataire), u"A**B**C**1, V"_s);
}

TEST(Titres, TitreRemplace) {
  const QStringList titres{u"M."_s, u"M. et Mme"_s, u"Mme"_s, u"Docteur  "_s, u"  "_s};
  const struct {
    const char16_t *ligne, *titre, *attendu;
  } cas[] = {
      {u"Paul", u"M.", u"M. Paul"},
      {u"M. Paul", u"Mme", u"Mme Paul"},
      {u"M. et Mme Paul", u"M.", u"M. Paul"},  // the longest
      {u"Mmemosyne", u"M.", u"M. Mmemosyne"},
      {u"Mme\u00A0Paul", u"M.", u"M. Paul"},
      {u"Docteur Paul", u"Mme", u"Mme Paul"},
      {u"Paul", u"Docteur  ", u"Docteur Paul"},
      {u"Docteur   Paul", u"Docteur  ", u"Docteur Paul"},
      {u"Mme", u"M.", u"M. "},
      {u"M. Paul", u"", u"Paul"},
      {u" Paul ", u"", u" Paul "},
      {u"Dr", u"", u"Dr"},
      {u"", u"M.", u"M. "},
      {u"M. ", u"Mme", u"Mme "},
  };
  for (const auto &c : cas)
    EXPECT_EQ(RemplacerTitre(QString::fromUtf16(c.ligne), titres, QString::fromUtf16(c.titre)),
              QString::fromUtf16(c.attendu))
        << QString::fromUtf16(c.ligne).toStdString();
  const QString longue(1'000'000, u'M');  // takes no longer than its length
  EXPECT_EQ(RemplacerTitre(longue, titres, u"M."_s), u"M. "_s + longue);
}

TEST(Raccourci, Touches) {
  for (int place = 0; place <= 8; ++place) {
    const auto touche = LibelleRaccourci(CodeRaccourci(place));
    ASSERT_TRUE(touche) << place;
    EXPECT_EQ(touche->place, place);
    EXPECT_EQ(touche->nom, place == 8 ? u"ENTR"_s : u'F' + QString::number(place + 5));
  }
  for (const int autre : {0, 115, 124, -1}) EXPECT_FALSE(LibelleRaccourci(autre)) << autre;
}

namespace {

class ExpediteurDefautTest : public DansUnDossier {};

}  // namespace

TEST_F(ExpediteurDefautTest, Fichier) {
  const QByteArray a = "Mme \xC9l\xE9onore*1 rue$44000*Nantes$ ";
  const QString chaine = u"Mme Éléonore*1 rue$44000*Nantes$ "_s;
  const struct {
    const char *nom;
    QByteArray avant;
    QString chaine;  // null: no sender, and the file goes
    int option;
    QByteArray apres;
  } cas[] = {
      {"town first", a + "\r\n1\r\n", chaine, 1, a + "\r\n1\r\n"},
      {"code first", a + "\r\n0\r\n", chaine, 0, a + "\r\n0\r\n"},
      {"older form", a + "\r\n", chaine, 0, a + "\r\n0\r\n"},
      {"empty sender", " $ $ \r\n0\r\n", u" $ $ "_s, 0, " $ $ \r\n0\r\n"},
      {"no sender chosen", "\r\n0\r\n", {}, 0, {}},
      {"empty", "", {}, 0, {}},
      {"text", "n'importe quoi\r\n1\r\n", {}, 0, {}},
      {"binary", QByteArray("\0\xFF\r\n\x1A", 5), {}, 0, {}},
      {"a lone sign", "$", {}, 0, {}},
  };
  CreerBaseVide(Chemin(u"Velmira.mdb"_s));
  Base base;
  base.Ouvrir(Chemin(u"Velmira.mdb"_s));
  const auto parDefaut = [&] {
    Requete requete(base, uR"(SELECT COUNT(*) FROM "Expediteur" WHERE "ParDefaut"<>0)"_s);
    requete.Suivante();
    return requete.Entier(0);
  };
  EXPECT_FALSE(LireExpediteurDefaut(Chemin(), base));
  EXPECT_FALSE(Existe(u"Defaut.ini"_s));
  Expediteur expediteur;
  for (const auto &c : cas) {
    SCOPED_TRACE(c.nom);
    expediteur.ParDefaut = true;
    AjouterLigne(base, expediteur);
    Poser(u"Defaut.ini"_s, c.avant);
    const auto lu = LireExpediteurDefaut(Chemin(), base);
    ASSERT_EQ(lu.has_value(), !c.chaine.isNull());
    if (lu) {
      EXPECT_EQ(lu->chaine, c.chaine);
      EXPECT_EQ(Nombre(lu->optionCP), c.option);
      EXPECT_EQ(Octets(u"Defaut.ini"_s), c.apres);
      EXPECT_GT(parDefaut(), 0);
    } else {
      EXPECT_FALSE(Existe(u"Defaut.ini"_s));
      EXPECT_EQ(parDefaut(), 0);
    }
  }
}

// The file has "?" for what its code page lacks.
TEST_F(ExpediteurDefautTest, HorsDeLaPageDeCode) {
  CreerBaseVide(Chemin(u"Velmira.mdb"_s));
  Base base;
  base.Ouvrir(Chemin(u"Velmira.mdb"_s));
  Expediteur dvorak;
  dvorak.Ligne1 = u"Antonín Dvořák 🎻"_s;
  dvorak.Ville = u"Łódź"_s;
  AjouterLigne(base, dvorak);
  dvorak.ParDefaut = true;
  const Cle cle = AjouterLigne(base, dvorak);
  const QString chaine = ComposerAdresse(AdresseSaisie::De(dvorak)).chaine;
  EcrireExpediteurDefaut(Chemin(), {chaine, OptionCP::VilleDevant});
  const auto lu = LireExpediteurDefaut(Chemin(), base);
  ASSERT_TRUE(lu);
  EXPECT_EQ(lu->chaine, chaine);
  EXPECT_EQ(lu->optionCP, OptionCP::VilleDevant) << "as the file says";

  // Another row says nothing of the file, nor does one that is not the default sender's.
  dvorak.Index = cle;
  const Expediteur avant = dvorak;
  dvorak.Ville = u"Łódź 2"_s;
  TableExpediteur(base).Modifier(avant, dvorak, [](const Expediteur &) {});
  EXPECT_EQ(LireExpediteurDefaut(Chemin(), base)->chaine, u"Antonín Dvo?ák ?$?ód?$ "_s);
}

// What is undone in the table is undone in the file.
TEST_F(ExpediteurDefautTest, RevientSansLaTransaction) {
  Expediteur expediteur;
  expediteur.Index = 1;
  {
    FichierDefaut fichier(Chemin());
    fichier.Suivre(expediteur);
    EXPECT_TRUE(Existe(u"Defaut.ini"_s));
  }
  EXPECT_FALSE(Existe(u"Defaut.ini"_s));
  Poser(u"Defaut.ini"_s, "A$ $ \r\n1\r\n");
  {
    FichierDefaut fichier(Chemin());
    fichier.Suivre({});
    EXPECT_FALSE(Existe(u"Defaut.ini"_s));
  }
  EXPECT_EQ(Octets(u"Defaut.ini"_s), "A$ $ \r\n1\r\n");
  FichierDefaut fichier(Chemin());
  fichier.ChoisirAucun();
  fichier.Garder();
  EXPECT_EQ(Octets(u"Defaut.ini"_s), "\r\n0\r\n");
}

TEST_F(ExpediteurDefautTest, SansBase) {
  Base fermee;
  Poser(u"Defaut.ini"_s, "\r\n0\r\n");
  EXPECT_NO_THROW(EXPECT_FALSE(LireExpediteurDefaut(Chemin(), fermee)));
  EXPECT_FALSE(Existe(u"Defaut.ini"_s));
  QDir().mkdir(Chemin(u"Defaut.ini"_s));
  EXPECT_NO_THROW(EXPECT_FALSE(LireExpediteurDefaut(Chemin(), fermee)));
}
