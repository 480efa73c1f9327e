// Easter, the public holidays, the file of name days.

#include "Outils.h"
#include "calendar/Fetes.h"
#include "calendar/JoursFeries.h"
#include "platform/PageDeCode.h"

using namespace Qt::StringLiterals;

TEST(Paques, DatesPubliees) {
  const QDate dates[] = {
      {1583, 4, 10}, {1598, 3, 22}, {1666, 4, 25}, {1761, 3, 22},
      {1818, 3, 22}, {1886, 4, 25}, {1913, 3, 23}, {1943, 4, 25},
      {1954, 4, 18}, {1981, 4, 19}, {2049, 4, 18}, {2076, 4, 19},  // the moon's exceptions
      {1999, 4, 4},  {2000, 4, 23}, {2008, 3, 23}, {2011, 4, 24},
      {2024, 3, 31}, {2026, 4, 5},  {2038, 4, 25}, {2285, 3, 22},
  };
  for (const QDate &date : dates) EXPECT_EQ(Paques(date.year()), date) << date.year();
}

TEST(Paques, DimancheDe1583A4099) {
  for (int annee = 1583; annee <= 4099; ++annee) {
    const QDate paques = Paques(annee);
    ASSERT_EQ(paques.dayOfWeek(), Qt::Sunday) << annee;
    ASSERT_GE(paques, QDate(annee, 3, 22));
    ASSERT_LE(paques, QDate(annee, 4, 25));
  }
}

TEST(JoursFeries, Annee2008) {
  QStringList jours;
  for (const JourFerie &jour : JoursFeries(2008))
    jours.append(jour.date.toString(u"dd/MM/yyyy "_s) + jour.nom + (jour.fixe ? u" *"_s : u""_s));
  // The Ascension falls on 1 May, and keeps its place behind 8 May.
  EXPECT_EQ(jours,
            (QStringList{u"01/01/2008 Jour de l'an *"_s, u"23/03/2008 Pâques"_s,
                         u"24/03/2008 Lundi de Pâques"_s, u"01/05/2008 Fête du travail *"_s,
                         u"08/05/2008 Victoire 1945 *"_s, u"01/05/2008 Jeudi de l'Ascencion"_s,
                         u"11/05/2008 Pentecôte"_s, u"12/05/2008 Lundi de Pentecôte"_s,
                         u"14/07/2008 Fête nationale *"_s, u"15/08/2008 Assomption *"_s,
                         u"01/11/2008 Toussaint *"_s, u"11/11/2008 Armistice 1918 *"_s,
                         u"25/12/2008 Noël *"_s}));
}

TEST(JoursFeries, AnneesExtremes) {
  for (const int annee : {-999, -1, 0}) EXPECT_TRUE(JoursFeries(annee).isEmpty()) << annee;
  for (const int annee : {1, 9999}) EXPECT_EQ(JoursFeries(annee).size(), 13) << annee;
}

TEST(Fetes, NomDuMois) {
  EXPECT_EQ(NomDuMois(1), u"Janvier"_s);
  EXPECT_EQ(NomDuMois(8), u"Aout"_s);
  EXPECT_EQ(NomDuMois(12), u"Décembre"_s);
  for (const int mois : {-1, 0, 13}) EXPECT_EQ(NomDuMois(mois), u""_s) << mois;
}

namespace {

QByteArray Fichier(const QString &texte) {
  return VersPageDeCode(texte);
}

/// "15/06 Guy" for a name that is found.
QString Trouve(const QByteArray &fichier, const QString &prenom) {
  const auto fete = ChercherFete(LireSaints(fichier), prenom);
  return fete ? fete->ligne.jour + u'/' + fete->ligne.mois + u' ' + fete->prenom : u"inconnu"_s;
}

}  // namespace

TEST(Fetes, JourDansLeFichier) {
  for (const QString &fin : {u"\r\n"_s, u"\n"_s}) {
    const QByteArray fichier =
        Fichier(QStringList{u""_s, u"|0503"_s, u"|1506---St(e) Germaine - St(e) Zoé|"_s,
                            u"|1506---St(e) Deux fois|"_s, u"|1606---x"_s, u"|3112---St(e) Fin|"_s}
                    .join(fin));
    EXPECT_EQ(SaintsDuJour(LireSaints(fichier), QDate(2026, 6, 15)),
              u"St(e) Germaine - St(e) Zoé"_s);
    EXPECT_EQ(Prenoms(LigneDuJour(LireSaints(fichier), u"1506"_s).value_or(LigneSaints())),
              (QStringList{u"Germaine"_s, u"Zoé"_s}));
    EXPECT_EQ(SaintsDuJour(LireSaints(fichier), QDate(2026, 12, 31)), u"St(e) Fin"_s);
    for (const QDate jour : {QDate(2026, 3, 5), QDate(2026, 6, 16), QDate(2026, 5, 3)})
      EXPECT_EQ(SaintsDuJour(LireSaints(fichier), jour), u""_s);
    EXPECT_EQ(LireSaints(fichier).size(), 6);
    EXPECT_EQ(LireSaints(fichier + fin.toLatin1()).size(), 6);
    EXPECT_FALSE(LigneDuJour(LireSaints(fichier), u"0615"_s)) << "day first, then month";
    EXPECT_TRUE(LigneDuJour(LireSaints(fichier), u"0503"_s));
  }
}

TEST(Fetes, JourDUnPrenom) {
  const QByteArray fichier = Fichier(
      u"|0107---St(e) Jean-Baptiste - St(e) Thierry|\r\n"
      "|2512---St(e) Noël - St(e) Emmanuel|\r\n"
      "|2712---St(e) Jean|\r\n"
      "|0105xyzSt(e) Jean - St(e) Joseph - Cœur|\n"
      "|0205---|\r\n"
      "|0305---St(e) Éléonore|"_s);
  const std::pair<QString, QString> cas[] = {
      {u"noel"_s, u"25/12 Noël"_s},
      {u"Noël"_s, u"25/12 Noël"_s},
      {u"NOEL"_s, u"25/12 Noël"_s},
      {u"Jean"_s, u"27/12 Jean"_s},  // neither Jean-Baptiste nor a later day
      {u"jean-baptiste"_s, u"01/07 Jean-Baptiste"_s},
      {u"Joseph"_s, u"01/05 Joseph"_s},
      {u"cœur"_s, u"01/05 Cœur"_s},
      {u"Coeur"_s, u"inconnu"_s},  // the ligature is not folded
      {u"eleonore"_s, u"03/05 Éléonore"_s},
      {u"Jea"_s, u"inconnu"_s},
      {u" Jean"_s, u"inconnu"_s},
      {u"St(e) Jean"_s, u"inconnu"_s},
      {u"Noël - St(e) Emmanuel"_s, u"inconnu"_s},
  };
  for (const auto &[prenom, attendu] : cas) EXPECT_EQ(Trouve(fichier, prenom), attendu);

  // A line of 8 characters ends the search, one of 9 does not.
  for (const auto &[ligne, attendu] : {std::pair(u"|0205---"_s, u"inconnu"_s),
                                       {u""_s, u"inconnu"_s},
                                       {u"|0205---|"_s, u"27/12 Jean"_s}})
    EXPECT_EQ(Trouve(Fichier(ligne + u"\r\n|2712---St(e) Jean|\r\n"_s), u"Jean"_s), attendu);
}

TEST(Fetes, FichierAbime) {
  QByteArray tous;
  for (int i = 0; i < 256; ++i) tous += static_cast<char>(i);
  const QString ligne = u"|1506---St(e) Zoé|\r\n"_s;
  const QByteArray utf16(reinterpret_cast<const char *>(ligne.utf16()), ligne.size() * 2);
  for (const QByteArray &fichier :
       {QByteArray(), QByteArray("\n"), QByteArray("\r"), QByteArray("\r\n\r\n"), tous, utf16,
        QByteArray(9, '\0'), QByteArray("|1506---") + QByteArray(100'000, 'x')}) {
    EXPECT_FALSE(ChercherFete(LireSaints(fichier), u"Zoé"_s));
    EXPECT_FALSE(SaintsDuJour(LireSaints(fichier), QDate(2026, 6, 15)).contains(u"Zoé"_s));
  }
  EXPECT_EQ(SaintsDuJour(LireSaints(ligne.toUtf8()), QDate(2026, 6, 15)), u"St(e) ZoÃ©"_s);
}
