// The workbook as another program reads it: what a story does not look at.

#include "Reel.h"
#include "exchange/ClasseurVelmiras.h"
#include "platform/linux/ClasseurSysteme.h"

#include <QJsonDocument>
#include <QJsonObject>

TEST(Classeur, ReluParUnAutre) {
  const QTemporaryDir dossier;
  const QString chemin = dossier.filePath(u"essai é.xlsx"_s);
  Correspondant fiche;
  fiche.TelTravail = u"a\x01\uFFFF\0b"_s, fiche.Mail = QString(40000, u'n');
  fiche.Ligne1 = u"=1+1"_s, fiche.Ligne3 = u"12 rue*des Lilas"_s, fiche.Ville = u"Nantes"_s;
  const FeuilleClasseur feuille = FeuilleVelmiras({fiche, {}});
  ClasseurSysteme().Ecrire(chemin, feuille);
  const QString python = u"/usr/bin/python3"_s;  // the system's, whose package the reader is
  const QByteArray texte = Executer(python, {QStringLiteral(VELMIRA_LIRE_CLASSEUR), chemin});
  const QJsonObject lu = QJsonDocument::fromJson(texte).object();
  const auto cellule = [&](const QString &nom, const QString &quoi) {
    return lu[u"cellules"][nom][quoi].toVariant().toString();
  };
  const auto largeur = [&](const QString &c) { return lu[u"colonnes"][c][u"largeur"].toDouble(); };
  const char *cas[][3] = {{"B1", "italique", "true"},  {"B1", "souligne", "true"},
                          {"B1", "lignes", "false"},   {"B2", "italique", "false"},
                          {"B2", "souligne", "false"}, {"H2", "lignes", "true"},
                          {"H2", "vertical", "center"}};
  for (const auto &[nom, quoi, attendu] : cas)
    EXPECT_EQ(cellule(QLatin1String(nom), QLatin1String(quoi)), QLatin1String(attendu)) << nom;
  EXPECT_EQ(lu[u"rangs"][u"1"][u"fond"], u"#404040"_s) << "the whole row";
  EXPECT_EQ(lu[u"rangs"][u"2"][u"hauteur"].toDouble(), 60) << "four lines";
  const QString controle = cellule(u"C2"_s, u"texte"_s);
  EXPECT_TRUE(controle.startsWith(u" a") && controle.endsWith(u"??b")) << qPrintable(controle);
  EXPECT_EQ(cellule(u"F2"_s, u"texte"_s).size(), 32767) << "what a cell can hold";
  EXPECT_LE(largeur(u"F"_s), 256);
  EXPECT_NEAR(largeur(u"H"_s), 12, 2) << "its longest line";

  const DisquePlein plein(2000);
  EXPECT_THROW(ClasseurSysteme().Ecrire(chemin, feuille), ErreurFichier);
  EXPECT_FALSE(QFile::exists(chemin));
}
