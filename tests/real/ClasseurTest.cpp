// The workbook as another program reads it.

#include "Reel.h"
#include "exchange/ClasseurVelmiras.h"
#include "platform/linux/ClasseurSysteme.h"

#include <QJsonDocument>
#include <QJsonObject>

TEST(Classeur, ReluParUnAutre) {
  const QTemporaryDir dossier;
  const QString chemin = dossier.filePath(u"essai é.xlsx"_s);
  Correspondant fiche;
  fiche.NomVelmira = u"Durand Élo"_s, fiche.Tel = u"=1+1"_s, fiche.Portable = u"06"_s;
  fiche.TelTravail = u"a\x01\uFFFF\0b"_s, fiche.Mail = QString(40000, u'n');
  fiche.Ligne1 = u"=1+1"_s, fiche.Ligne3 = u"12 rue*des Lilas"_s, fiche.Ville = u"Nantes"_s;
  ClasseurSysteme().Ecrire(chemin, FeuilleVelmiras({fiche, {}}));

  // The system's, whose package the reading library is.
  const auto json = [](const QByteArray &texte) { return QJsonDocument::fromJson(texte).object(); };
  const QJsonObject lu =
      json(Executer(u"/usr/bin/python3"_s, {QStringLiteral(VELMIRA_LIRE_CLASSEUR), chemin}));
  const auto cellule = [&](const QString &nom) { return lu[u"cellules"][nom].toObject(); };
  const auto texte = [&](const QString &nom) { return cellule(nom)[u"texte"].toString(); };
  const auto largeur = [&](const QString &c) { return lu[u"colonnes"][c][u"largeur"].toDouble(); };

  const QJsonObject titre = json(R"({"texte": "TEL.  DOMICILE", "type": "s", "gras": true,
      "italique": true, "souligne": true, "couleur": "#ffffff", "fond": "#404040",
      "horizontal": "center", "vertical": "center", "lignes": false})");
  EXPECT_EQ(cellule(u"B1"_s), titre);
  EXPECT_EQ(lu[u"rangs"][u"1"][u"fond"], titre[u"fond"]) << "the whole row";
  for (const QString &nom : {u"B2"_s, u"D2"_s, u"H2"_s}) {
    EXPECT_EQ(cellule(nom)[u"type"].toString(), u"s"_s) << "a text, whatever it looks like";
    EXPECT_EQ(cellule(nom)[u"vertical"].toString(), u"center"_s);
    EXPECT_FALSE(cellule(nom)[u"italique"].toBool() || cellule(nom)[u"souligne"].toBool());
    EXPECT_EQ(cellule(nom)[u"lignes"].toBool(), nom == u"H2"_s);
  }
  EXPECT_EQ(texte(u"B2"_s), u" =1+1"_s);
  EXPECT_EQ(texte(u"H2"_s), u"=1+1\n12 rue\ndes Lilas\nNantes"_s);
  EXPECT_TRUE(texte(u"C2"_s).startsWith(u" a") && texte(u"C2"_s).endsWith(u"??b"));
  EXPECT_EQ(texte(u"F2"_s).size(), 32767) << "what a cell can hold";
  EXPECT_EQ(lu[u"rangs"][u"2"][u"hauteur"].toDouble(), 60) << "four lines";
  EXPECT_LE(largeur(u"F"_s), 256);
  EXPECT_GT(largeur(u"H"_s), 10);
  EXPECT_LT(largeur(u"H"_s), 14) << "its longest line";

  const DisquePlein plein(2000);
  const QString autre = dossier.filePath(u"autre.xlsx"_s);
  EXPECT_THROW(ClasseurSysteme().Ecrire(autre, FeuilleVelmiras({fiche})), ErreurFichier);
  EXPECT_FALSE(QFile::exists(autre));
}
