// The workbook as another program reads it: texts, formats, sizes.

#include "commun/DisquePlein.h"
#include "exchange/ClasseurVelmiras.h"
#include "platform/Erreurs.h"
#include "platform/linux/ClasseurSysteme.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class ClasseurTest : public testing::Test {
 protected:
  void Ecrire(const QList<Correspondant> &velmiras) {
    ClasseurSysteme().Ecrire(Chemin(), FeuilleVelmiras(velmiras));
    QProcess lecteur;
    // The system's, whose package the reading library is.
    lecteur.start(u"/usr/bin/python3"_s, {QStringLiteral(VELMIRA_LIRE_CLASSEUR), Chemin()});
    ASSERT_TRUE(lecteur.waitForFinished(120000));
    ASSERT_EQ(lecteur.exitCode(), 0) << lecteur.readAllStandardError().constData();
    lu_ = QJsonDocument::fromJson(lecteur.readAllStandardOutput()).object();
  }

  QString Chemin() const { return dossier_.filePath(u"essai é.xlsx"_s); }
  QJsonObject Cellule(const QString &nom) const { return lu_[u"cellules"][nom].toObject(); }
  QString Texte(const QString &nom) const { return Cellule(nom)[u"texte"].toString(); }
  double Largeur(const QString &colonne) const {
    return lu_[u"colonnes"][colonne][u"largeur"].toDouble();
  }

  QTemporaryDir dossier_;
  QJsonObject lu_;
};

Correspondant Durand() {
  Correspondant v;
  v.NomVelmira = u"Durand Élo"_s;
  v.Tel = u"02 40 00 00 00"_s, v.TelTravail = u"=1+1"_s, v.Portable = u"06"_s, v.Fax = u"1e3"_s;
  v.Mail = u"elo@exemple.fr"_s, v.Web = u"https://exemple.fr/?a=<b>&c"_s;
  v.Ligne1 = u"Mme Durand"_s, v.Ligne3 = u"12 rue*des Lilas"_s, v.CodePostal = u"44000"_s;
  v.Ville = u"Nantes"_s, v.Pays = u"France"_s;
  return v;
}

}  // namespace

TEST_F(ClasseurTest, Titres) {
  Ecrire({});
  EXPECT_EQ(lu_[u"feuilles"].toArray(), QJsonArray{u"VELMIRA"_s});
  EXPECT_EQ(lu_[u"nombre"].toInt(), 1);
  EXPECT_EQ(lu_[u"rangs"][u"1"][u"fond"].toString(), u"#404040"_s) << "the whole row";
  const QStringList titres{u"VELMIRA"_s, u"TEL.  DOMICILE"_s, u"TEL.  TRAVAIL"_s, u"PORTABLE"_s,
                           u"FAX"_s,     u"ADRESSE  EMAIL"_s, u"PAGE  WEB"_s,     u"ADRESSE"_s};
  for (int i = 0; i < titres.size(); ++i) {
    const QString nom = QChar(u'A' + i) + u"1"_s;
    SCOPED_TRACE(nom.toStdString());
    EXPECT_EQ(Cellule(nom), (QJsonObject{{u"texte"_s, titres[i]},
                                         {u"type"_s, u"s"_s},
                                         {u"gras"_s, true},
                                         {u"italique"_s, true},
                                         {u"souligne"_s, true},
                                         {u"couleur"_s, u"#ffffff"_s},
                                         {u"fond"_s, u"#404040"_s},
                                         {u"horizontal"_s, u"center"_s},
                                         {u"vertical"_s, u"center"_s},
                                         {u"lignes"_s, false}}));
  }
  EXPECT_TRUE(Texte(u"I1"_s).isEmpty());
}

TEST_F(ClasseurTest, Rangs) {
  Correspondant vide;
  vide.NomVelmira = u"Vide"_s;
  Ecrire({Durand(), vide});
  EXPECT_EQ(lu_[u"nombre"].toInt(), 3);
  const QStringList textes{u" Durand Élo"_s,
                           u" 02 40 00 00 00"_s,
                           u" =1+1"_s,
                           u" 06"_s,
                           u" 1e3"_s,
                           u" elo@exemple.fr"_s,
                           u" https://exemple.fr/?a=<b>&c"_s,
                           u"Mme Durand\n12 rue\ndes Lilas\n44000\nNantes"_s};
  for (int i = 0; i < textes.size(); ++i) {
    const QString nom = QChar(u'A' + i) + u"2"_s;
    SCOPED_TRACE(nom.toStdString());
    EXPECT_EQ(Texte(nom), textes[i]);
    EXPECT_EQ(Cellule(nom)[u"type"].toString(), u"s"_s) << "a text, whatever it looks like";
    EXPECT_EQ(Cellule(nom)[u"gras"].toBool(), i == 0);
    EXPECT_EQ(Cellule(nom)[u"lignes"].toBool(), i == 7);
    EXPECT_EQ(Cellule(nom)[u"vertical"].toString(), u"center"_s);
    EXPECT_TRUE(Cellule(nom)[u"fond"].isNull());
    EXPECT_FALSE(Cellule(nom)[u"italique"].toBool() || Cellule(nom)[u"souligne"].toBool());
  }
  EXPECT_EQ(Texte(u"B3"_s), u" "_s);
  EXPECT_EQ(Texte(u"H3"_s), QString());
  EXPECT_DOUBLE_EQ(lu_[u"rangs"][u"2"][u"hauteur"].toDouble(), 75) << "five lines";
  EXPECT_TRUE(lu_[u"rangs"][u"3"][u"hauteur"].isNull() || lu_[u"rangs"][u"3"].isUndefined());
  // As wide as the longest line, not as the whole address.
  EXPECT_GT(Largeur(u"H"_s), 12);
  EXPECT_LT(Largeur(u"H"_s), 18);
  EXPECT_GT(Largeur(u"G"_s), 27);
  EXPECT_LT(Largeur(u"D"_s), Largeur(u"G"_s));
}

// A formula is one by the way in which it is written, not by the blank before it.
TEST_F(ClasseurTest, PasDeFormuleNiDeTexteTropLong) {
  Correspondant v;
  v.NomVelmira = QString(40000, u'n');
  v.Tel = u"a\x01\uFFFF\0b"_s;
  v.Ligne1 = u"=1+1"_s;
  Ecrire({v});
  EXPECT_EQ(Texte(u"H2"_s), u"=1+1"_s);
  EXPECT_EQ(Cellule(u"H2"_s)[u"type"].toString(), u"s"_s);
  EXPECT_EQ(Texte(u"A2"_s).size(), 32767);
  EXPECT_TRUE(Texte(u"B2"_s).startsWith(u" a") && Texte(u"B2"_s).endsWith(u"??b"));
  EXPECT_LE(Largeur(u"A"_s), 256);
}

TEST_F(ClasseurTest, NeSEcritPas) {
  const auto echouer = [](const QString &chemin, const QString &raison) {
    try {
      ClasseurSysteme().Ecrire(chemin, FeuilleVelmiras({Durand()}));
      ADD_FAILURE() << chemin.toStdString();
    } catch (const ErreurFichier &erreur) {
      EXPECT_TRUE(erreur.Texte().startsWith(
          u"Le classeur « %1 » n'a pas pu être écrit : %2"_s.arg(chemin, raison)))
          << erreur.Texte().toStdString();
    }
  };
  echouer(dossier_.filePath(u"absent/essai.xlsx"_s), u"il est introuvable"_s);
  {
    const DisquePlein plein(2000);
    echouer(Chemin(), u"il n'y a plus de place"_s);
  }
  EXPECT_FALSE(QFile::exists(Chemin()));
}

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
