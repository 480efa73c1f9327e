// The delivered text files: their form, and that they hold what they should.

#include "Outils.h"
#include "calendar/Fetes.h"
#include "calendar/SansAccents.h"
#include "platform/PageDeCode.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QByteArray OctetsLivres(const QString &nom) {
  QFile fichier(QStringLiteral(VELMIRA_DATA) + u'/' + nom);
  if (fichier.open(QIODevice::ReadOnly)) return fichier.readAll();
  ADD_FAILURE() << nom.toStdString() << " is missing";
  return {};
}

/// The lines of a delivered file, all of them ended by CR LF and free of other control characters.
QStringList LignesLivrees(const QString &nom) {
  QStringList lignes = DepuisPageDeCode(OctetsLivres(nom)).split(u"\r\n"_s);
  EXPECT_EQ(lignes.takeLast(), u""_s);
  for (const QString &ligne : lignes)
    EXPECT_TRUE(std::ranges::none_of(ligne, [](QChar c) {
      return c.category() == QChar::Other_Control;
    })) << ligne.toStdString();
  return lignes;
}

}  // namespace

TEST(Donnees, FormeDeCdPostal) {
  const QStringList lignes = LignesLivrees(u"CdPostal.txt"_s);
  EXPECT_GT(lignes.size(), 36'000);
  // [0-9] and [A-Z] are ASCII only; a name has single blanks between its words
  static const QRegularExpression forme(u"^[0-9]{5}  [A-Z]+( [A-Z]+)*$"_s);
  static const QRegularExpression enToutesLettres(u"\\bSAINTE?\\b"_s);
  QString precedente;
  for (const QString &ligne : lignes) {
    ASSERT_TRUE(forme.match(ligne).hasMatch()) << ligne.toStdString();
    ASSERT_FALSE(enToutesLettres.match(ligne).hasMatch()) << ligne.toStdString();
    const QString cle = ligne.mid(7) + u'\t' + ligne.left(5);
    ASSERT_LT(precedente, cle);  // sorted, and nothing twice
    precedente = cle;
  }
}

TEST(Donnees, ContenuDeCdPostal) {
  const QStringList lignes = LignesLivrees(u"CdPostal.txt"_s);
  const QSet<QString> toutes(lignes.begin(), lignes.end());
  for (const QString &ligne : {u"44000  NANTES"_s,
                               u"44300  NANTES"_s,
                               u"75001  PARIS"_s,
                               u"75020  PARIS"_s,
                               u"75116  PARIS"_s,
                               u"13016  MARSEILLE"_s,
                               u"69009  LYON"_s,
                               u"20000  AJACCIO"_s,
                               u"20200  BASTIA"_s,
                               u"42000  ST ETIENNE"_s,
                               u"17100  SAINTES"_s,              // no Saint in it
                               u"94240  L HAY LES ROSES"_s,      // apostrophe, hyphens, trema
                               u"80190  Y"_s,                    // the shortest name
                               u"02600  COEUVRES ET VALSERY"_s,  // a ligature
                               u"85140  STE FLORENCE"_s,         // independent again since 2024
                               u"29217  LE CONQUET"_s,
                               u"97400  ST DENIS"_s,
                               u"97490  STE CLOTILDE"_s,
                               u"97133  ST BARTHELEMY"_s,
                               u"97500  ST PIERRE"_s,
                               u"97600  MAMOUDZOU"_s,
                               u"98714  PAPEETE"_s,
                               u"98800  NOUMEA"_s,
                               u"06160  JUAN LES PINS"_s,  // a place with its own code
                               u"01300  ARBIGNIEU"_s})     // merged into Arboys en Bugey
    EXPECT_TRUE(toutes.contains(ligne)) << ligne.toStdString();

  // No department is left out; Corsica's two share 20.
  QSet<QString> departements;
  for (const QString &ligne : lignes) departements += ligne.left(2);
  for (int i = 1; i <= 98; ++i)
    EXPECT_EQ(departements.contains(u"%1"_s.arg(i, 2, 10, QChar(u'0'))), i != 96) << i;
}

TEST(Donnees, Civilite) {
  const QStringList lignes = LignesLivrees(u"Civilite.txt"_s);
  for (const QString &ligne : lignes) {
    // Without blanks: they would stand between title and name on the envelope.
    EXPECT_EQ(ligne, ligne.trimmed());
    EXPECT_FALSE(ligne.isEmpty() || ligne.contains(u'*')) << ligne.toStdString();
  }
  EXPECT_EQ(QSet<QString>(lignes.begin(), lignes.end()).size(), lignes.size());
  for (const QString &titre : {u"M."_s, u"Mme"_s, u"M. et Mme"_s, u"Abbé"_s, u"Sœur"_s})
    EXPECT_TRUE(lignes.contains(titre)) << titre.toStdString();
}

TEST(Donnees, FormeDeSaints) {
  const QStringList lignes = LignesLivrees(u"Saints.txt"_s);
  ASSERT_EQ(lignes.size(), 366);
  // Letters that went through the wrong code page are no single capital with small ones behind it.
  static const QRegularExpression prenom(u"^St\\(e\\) \\p{Lu}\\p{Ll}+(-\\p{L}\\p{Ll}*)*$"_s);
  QSet<QString> cles, repetees;
  QDate jour(2024, 1, 1);
  for (const QString &ligne : lignes) {
    ASSERT_EQ(ligne.left(8), u"\"%1\",\""_s.arg(jour.toString(u"ddMM"_s)));
    ASSERT_TRUE(ligne.endsWith(u'"'));
    QSet<QString> clesDuJour;
    for (const QString &nom : ligne.mid(8).chopped(1).split(u" - "_s)) {
      EXPECT_TRUE(prenom.match(nom).hasMatch()) << ligne.toStdString();
      const QString cle = SansAccents(nom.mid(6)).toUpper();
      EXPECT_FALSE(clesDuJour.contains(cle)) << ligne.toStdString();
      clesDuJour += cle;
    }
    repetees += clesDuJour & cles;
    cles += clesDuJour;
    jour = jour.addDays(1);
  }
  // The search finds the first day of a name only: a further one is there on purpose or not at all.
  EXPECT_EQ(repetees, QSet<QString>({u"FRANCOIS"_s, u"JACQUES"_s, u"MARIE"_s, u"PIERRE"_s,
                                     u"THERESE"_s, u"THOMAS"_s, u"VINCENT"_s}));
}

TEST(Donnees, ContenuDeSaints) {
  const auto saints = LireSaints(OctetsLivres(u"Saints.txt"_s));
  const std::pair<QString, QString> cas[] = {
      {u"Geneviève"_s, u"0301"_s}, {u"Valentin"_s, u"1402"_s},        {u"Auguste"_s, u"2902"_s},
      {u"Joseph"_s, u"1903"_s},    {u"Georges"_s, u"2304"_s},         {u"Jeanne"_s, u"3005"_s},
      {u"Antoine"_s, u"1306"_s},   {u"Jean-Baptiste"_s, u"2406"_s},   {u"Pierre"_s, u"2906"_s},
      {u"Paul"_s, u"2906"_s},      {u"Marie-Madeleine"_s, u"2207"_s}, {u"Anne"_s, u"2607"_s},
      {u"Louis"_s, u"2508"_s},     {u"Gabriel"_s, u"2909"_s},         {u"Thérèse"_s, u"0110"_s},
      {u"Charles"_s, u"0411"_s},   {u"Catherine"_s, u"2511"_s},       {u"Noël"_s, u"2512"_s},
      {u"Jean"_s, u"2712"_s},      {u"Sylvestre"_s, u"3112"_s}};
  for (const auto &[prenom, jjmm] : cas) {
    const auto fete = ChercherFete(saints, prenom);
    ASSERT_TRUE(fete) << prenom.toStdString();
    EXPECT_EQ(fete->ligne.jour + fete->ligne.mois, jjmm) << prenom.toStdString();
  }
}

TEST(Donnees, Alerte) {
  // A letter that went through the wrong page shows as "Ã" or "?"; a real "?" follows a blank.
  const QStringList lignes = LignesLivrees(u"Alerte.txt"_s);
  EXPECT_GT(lignes.size(), 20);
  static const QRegularExpression douteux(u"[^ ]\\?|Ã"_s);
  for (const QString &ligne : lignes) {
    EXPECT_FALSE(douteux.match(ligne).hasMatch()) << ligne.toStdString();
    EXPECT_LT(ligne.size(), 80) << ligne.toStdString();
  }
  EXPECT_EQ(lignes.value(0), u"LES ALERTES D'ÉVÈNEMENTS"_s);
}
