// What the printer "PDF" really puts on paper: pages are printed as the envelope window and the
// directory print them, and measured by another program.

#include "commun/DisquePlein.h"
#include "commun/HorlogeFixe.h"
#include "directory/ImpressionListe.h"
#include "envelope/MiseEnPage.h"
#include "platform/Erreurs.h"
#include "platform/linux/ImprimanteSysteme.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <algorithm>
#include <cmath>
#include <future>
#include <gtest/gtest.h>
#include <limits>
#include <optional>
#include <utility>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr double kTolerance = 0.2;  // millimetres
const FinImpression kEchouee;
constexpr double kNulle = std::numeric_limits<double>::quiet_NaN();

/// Millimetres from the top left corner of the page. What was not found holds no numbers, and is
/// near to nothing.
struct Cadre {
  double gauche = kNulle, haut = kNulle, droite = kNulle, bas = kNulle;
  double Milieu() const { return (gauche + droite) / 2; }
};

struct PageLue {
  double largeur = 0, hauteur = 0;  // points
  std::vector<std::pair<QString, Cadre>> mots;

  Cadre Mot(const QString &texte) const {
    for (const auto &[mot, cadre] : mots)
      if (mot == texte) return cadre;
    return {};
  }
};

QByteArray Executer(const QString &programme, const QStringList &arguments) {
  QProcess processus;
  processus.start(programme, arguments);
  EXPECT_TRUE(processus.waitForFinished()) << qPrintable(programme);
  EXPECT_EQ(processus.exitCode(), 0) << processus.readAllStandardError().constData();
  return processus.readAllStandardOutput();
}

std::vector<PageLue> LirePages(const QString &pdf) {
  std::vector<PageLue> pages;
  QXmlStreamReader xml(Executer(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s}));
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    const QXmlStreamAttributes attributs = xml.attributes();
    const auto nombre = [&](const QString &nom) { return attributs.value(nom).toDouble(); };
    if (xml.name() == u"page"_s) {
      pages.push_back({nombre(u"width"_s), nombre(u"height"_s), {}});
    } else if (xml.name() == u"word"_s) {
      const Cadre cadre{nombre(u"xMin"_s) * kPoint.valeur, nombre(u"yMin"_s) * kPoint.valeur,
                        nombre(u"xMax"_s) * kPoint.valeur, nombre(u"yMax"_s) * kPoint.valeur};
      pages.back().mots.emplace_back(xml.readElementText(), cadre);
    }
  }
  return pages;
}

PageLue LirePage(const QString &pdf) {
  const auto pages = LirePages(pdf);
  EXPECT_EQ(pages.size(), 1u) << qPrintable(pdf);
  return pages.empty() ? PageLue() : pages.front();
}

/// What is inked of the whole page, by its picture.
Cadre Encre(const QString &pdf) {
  constexpr int kResolution = 300;
  const QImage image = QImage::fromData(
      Executer(u"pdftoppm"_s, {u"-gray"_s, u"-r"_s, QString::number(kResolution), pdf}));
  int gauche = image.width(), haut = image.height(), droite = 0, bas = 0;
  for (int y = 0; y < image.height(); ++y) {
    const uchar *ligne = image.constScanLine(y);
    for (int x = 0; x < image.width(); ++x) {
      if (ligne[x] >= 128) continue;
      gauche = std::min(gauche, x);
      haut = std::min(haut, y);
      droite = std::max(droite, x + 1);
      bas = std::max(bas, y + 1);
    }
  }
  if (droite == 0) return {};
  const double pas = kPouce.valeur / kResolution;
  return {gauche * pas, haut * pas, droite * pas, bas * pas};
}

class Impression : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(dossier_.isValid());
    for (const QString &famille :
         {u"Liberation Sans"_s, u"Liberation Serif"_s, u"Liberation Mono"_s})
      ASSERT_TRUE(QFontDatabase::hasFamily(famille)) << qPrintable(famille);
    plomex_.Orientation = OrientationFeuille::Portrait;
    plomex_.BordImprime = BordImprime::Gauche;
    plomex_.PositionEnveloppe = PositionEnveloppe::Haut;
    plomex_.PoliceA = plomex_.PoliceE = u"Liberation Sans"_s;
    plomex_.TailleA = 10;
    plomex_.TailleE = 8;
  }

  QString Chemin(const QString &nom) const { return dossier_.filePath(u"courrier/"_s + nom); }
  QStringList Fichiers() const {
    return QDir(Chemin({})).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
  }
  FinImpression Finir(ImprimanteSysteme &imprimante, const ContenuEnveloppe &contenu) const {
    return *ImprimerPlis(imprimante, Imprimante::NomPdf(), plomex_, {{etat_, contenu}});
  }
  /// The path of the page.
  QString Imprimer(const ContenuEnveloppe &contenu) {
    const FinImpression fin = Finir(imprimante_, contenu);
    EXPECT_EQ(fin.issue, FinImpression::Issue::Enregistree);
    return fin.fichier;
  }
  PageLue ImprimerEtLire(const ContenuEnveloppe &contenu) { return LirePage(Imprimer(contenu)); }

  QTemporaryDir dossier_;
  HorlogeFixe horloge_;
  ImprimanteSysteme imprimante_{horloge_, Chemin({})};  // the folder is not there yet
  ReglagesPlomex plomex_;
  EtatEnveloppe etat_;
};

struct Cas {
  const char *nom;
  double largeur, hauteur;
  void (*regler)(ReglagesPlomex &);
  Point adresse;
  std::optional<Point> expediteur;  // none where it falls off the page
  double finCommentaire;
};

TEST_F(Impression, PlacesSurLaPage) {
  const Cas cas[] = {
      {"portrait",
       220,
       110,
       [](ReglagesPlomex &) {},
       {Millimetres(80), Millimetres(50)},
       Point{Millimetres(2), Millimetres(5)},
       180},
      {"portrait, print and zones moved",
       220,
       110,
       [](ReglagesPlomex &p) {
         p.MargeDroite = Millimetres(3);
         p.MargeHaute = Millimetres(-2);
         p.MargeMAX = Millimetres(10);
         p.MargeMAY = Millimetres(-20);
         p.MargeMEX = Millimetres(4);
         p.MargeMEY = Millimetres(6);
       },
       {Millimetres(93), Millimetres(28)},
       Point{Millimetres(9), Millimetres(9)},
       183},
      {"landscape, left edge, top",
       229,
       162,
       [](ReglagesPlomex &p) { p.Orientation = OrientationFeuille::Paysage; },
       {Millimetres(83.273), Millimetres(73.636)},
       Point{Millimetres(2), Millimetres(7.364)},
       189},
      {"landscape, right edge, middle",
       162,
       114,
       [](ReglagesPlomex &p) {
         p.Orientation = OrientationFeuille::Paysage;
         p.BordImprime = BordImprime::Droit;
         p.PositionEnveloppe = PositionEnveloppe::Milieu;
       },
       {Millimetres(116.909), Millimetres(49.818)},
       Point{Millimetres(60), Millimetres(3.182)},
       180},
      {"landscape, right edge, bottom, beyond the top of the page",
       229,
       162,
       [](ReglagesPlomex &p) {
         p.Orientation = OrientationFeuille::Paysage;
         p.BordImprime = BordImprime::Droit;
         p.PositionEnveloppe = PositionEnveloppe::Bas;
       },
       {Millimetres(74.273), Millimetres(21.636)},
       std::nullopt,
       0},
  };
  etat_.Commentaire = u"Recommandé"_s;
  const ReglagesPlomex depart = plomex_;
  for (const Cas &c : cas) {
    SCOPED_TRACE(c.nom);
    plomex_ = depart;
    c.regler(plomex_);
    etat_.LargeurEnv = Millimetres(c.largeur);
    etat_.HauteurEnv = Millimetres(c.hauteur);

    const PageLue page = ImprimerEtLire({u"Expéditrice"_s, u"Œuvré"_s, true});
    const bool portrait = plomex_.Orientation == OrientationFeuille::Portrait;
    EXPECT_EQ(page.largeur, portrait ? 595 : 842);
    EXPECT_EQ(page.hauteur, portrait ? 842 : 595);
    const Cadre adresse = page.Mot(u"Œuvré"_s);
    EXPECT_NEAR(adresse.gauche, c.adresse.x.valeur, kTolerance);
    EXPECT_NEAR(adresse.haut, c.adresse.y.valeur, kTolerance);
    if (!c.expediteur) continue;
    const Cadre expediteur = page.Mot(u"Expéditrice"_s);
    EXPECT_NEAR(expediteur.gauche, c.expediteur->x.valeur, kTolerance);
    EXPECT_NEAR(expediteur.haut, c.expediteur->y.valeur, kTolerance);
    const Cadre commentaire = page.Mot(u"Recommandé"_s);
    EXPECT_NEAR(commentaire.droite, c.finCommentaire, kTolerance);
    EXPECT_NEAR(commentaire.haut, c.expediteur->y.valeur, kTolerance);
  }
}

// The design of the fonts, in parts of the size: what a line moves down, and how wide "HHHH" is.
TEST_F(Impression, TaillesEtInterlignes) {
  const struct {
    QString police;
    qint16 points;
    double interligne, largeur;
  } cas[] = {{u"Liberation Sans"_s, 8, 1.1499, 2.8887},
             {u"Liberation Sans"_s, 11, 1.1499, 2.8887},
             {u"Liberation Sans"_s, 36, 1.1499, 2.8887},
             {u"Liberation Serif"_s, 14, 1.1499, 2.8887},
             {u"Liberation Mono"_s, 14, 1.1328, 2.4004}};
  for (const auto &c : cas) {
    SCOPED_TRACE(qPrintable(c.police + u' ' + QString::number(c.points)));
    plomex_.PoliceA = c.police;
    plomex_.TailleA = c.points;
    const PageLue page = ImprimerEtLire({{}, u"HHHH\nDeux\n\nQuatre"_s});
    const double taille = c.points * kPoint.valeur;
    const Cadre premiere = page.Mot(u"HHHH"_s);
    EXPECT_NEAR(premiere.haut, 50, kTolerance);
    EXPECT_NEAR(premiere.droite - premiere.gauche, c.largeur * taille, kTolerance);
    EXPECT_NEAR(page.Mot(u"Deux"_s).haut, 50 + c.interligne * taille, kTolerance);
    EXPECT_NEAR(page.Mot(u"Quatre"_s).haut, 50 + 3 * c.interligne * taille, kTolerance);
    EXPECT_NEAR(page.Mot(u"Quatre"_s).gauche, 80, kTolerance);
  }
}

// The ink itself: an "H" of Liberation Sans stands on the base line, 0.9053 of the size below the
// top of the line, and is 0.688 high; its sides are 0.082 and 0.6406 right of its place.
TEST_F(Impression, EncreDUneLettre) {
  for (const bool portrait : {true, false}) {
    SCOPED_TRACE(portrait ? "portrait" : "landscape");
    plomex_.Orientation = portrait ? OrientationFeuille::Portrait : OrientationFeuille::Paysage;
    plomex_.TailleA = 36;
    const double taille = 36 * kPoint.valeur, base = 50 + 0.9053 * taille;
    const Cadre encre = Encre(Imprimer({{}, u"H"_s}));
    EXPECT_NEAR(encre.bas, base, kTolerance);
    EXPECT_NEAR(encre.haut, base - 0.688 * taille, kTolerance);
    EXPECT_NEAR(encre.gauche, 80 + 0.082 * taille, kTolerance);
    EXPECT_NEAR(encre.droite, 80 + 0.6406 * taille, kTolerance);
  }
}

TEST_F(Impression, StylesDeLaLigne) {
  etat_.Commentaire = u"HHH"_s;
  plomex_.TailleE = 34;  // of the comment: 36
  const double base = 5 + 0.9053 * 36 * kPoint.valeur;
  const auto polices = [](const QString &pdf) {
    return QString::fromUtf8(Executer(u"pdffonts"_s, {pdf}));
  };

  const QString simple = Imprimer({{}, {}, true});
  EXPECT_NEAR(Encre(simple).bas, base, kTolerance);
  EXPECT_TRUE(polices(simple).contains(u"LiberationSans "_s));
  EXPECT_FALSE(polices(simple).contains(u"Bold"_s));

  etat_.CommentaireSouligne = true;
  EXPECT_GT(Encre(Imprimer({{}, {}, true})).bas, base + 0.5);

  etat_.CommentaireSouligne = false;
  etat_.CommentaireGras = true;
  const QString gras = Imprimer({{}, {}, true});
  EXPECT_TRUE(polices(gras).contains(u"LiberationSans-Bold "_s));
  EXPECT_FALSE(polices(gras).contains(u"LiberationSans "_s));
  EXPECT_NEAR(LirePage(gras).Mot(u"HHH"_s).droite, 180, kTolerance);
}

// The shorter lines are placed by the width that they have on paper, bold ones by that of the bold.
TEST_F(Impression, Alignements) {
  const ContenuEnveloppe contenu{u"Laboratoires\nCourt"_s, u"Établissements\nRue\nNANTES"_s};
  plomex_.TailleA = 20;
  plomex_.GrasDLigne = true;

  plomex_.AlignA = plomex_.AlignE = Alignement::Droite;
  PageLue page = ImprimerEtLire(contenu);
  EXPECT_NEAR(page.Mot(u"Établissements"_s).gauche, 80, kTolerance);
  EXPECT_NEAR(page.Mot(u"Laboratoires"_s).gauche, 2, kTolerance);
  const double droite = page.Mot(u"Établissements"_s).droite;
  EXPECT_NEAR(page.Mot(u"Rue"_s).droite, droite, kTolerance);
  EXPECT_NEAR(page.Mot(u"NANTES"_s).droite, droite, kTolerance);
  EXPECT_NEAR(page.Mot(u"Court"_s).droite, page.Mot(u"Laboratoires"_s).droite, kTolerance);

  plomex_.AlignA = plomex_.AlignE = Alignement::Centre;
  page = ImprimerEtLire(contenu);
  EXPECT_NEAR(page.Mot(u"Établissements"_s).gauche, 80, kTolerance);
  const double milieu = page.Mot(u"Établissements"_s).Milieu();
  EXPECT_NEAR(page.Mot(u"Rue"_s).Milieu(), milieu, kTolerance);
  EXPECT_NEAR(page.Mot(u"NANTES"_s).Milieu(), milieu, kTolerance);
  EXPECT_NEAR(page.Mot(u"Court"_s).Milieu(), page.Mot(u"Laboratoires"_s).Milieu(), kTolerance);
}

TEST_F(Impression, ChoixDeLImprimante) {
  const QStringList noms = imprimante_.Noms();
  EXPECT_EQ(noms.last(), Imprimante::NomPdf());
  EXPECT_EQ(noms.count(Imprimante::NomPdf()), 1);
  EXPECT_TRUE(noms.contains(imprimante_.ParDefaut()));

  // No page opens on a printer that the system does not have, and none on another in its place.
  const QString disparue = u"Imprimante disparue"_s;
  EXPECT_THROW(imprimante_.Ouvrir(disparue, {.nom = u"Enveloppe"_s}), Erreur);
  EXPECT_EQ(Fichiers(), QStringList());
}

// Two documents at a time do not meet; one that nobody ends leaves nothing.
TEST_F(Impression, DocumentAbandonne) {
  const Police police{u"Liberation Sans"_s, 10, false, false};
  const auto ouvrir = [&](const QString &texte) {
    auto document = imprimante_.Ouvrir(Imprimante::NomPdf(), {.nom = u"Enveloppe"_s});
    document->Ecrire(Millimetres(80), Millimetres(10), police, texte);
    return document;
  };
  auto perdu = ouvrir(u"Perdu"_s);
  const auto garde = ouvrir(u"Gardé"_s);
  perdu.reset();
  EXPECT_EQ(Fichiers(), QStringList());
  const FinImpression fin = garde->Terminer();
  EXPECT_EQ(Fichiers(), QStringList(QFileInfo(fin.fichier).fileName()));
  EXPECT_EQ(LirePage(fin.fichier).mots.size(), 1u);
  EXPECT_NEAR(LirePage(fin.fichier).Mot(u"Gardé"_s).gauche, 80, kTolerance);
}

TEST_F(Impression, AucunFichierNEstRemplace) {
  const QString pris = Chemin(u"Enveloppe 2026-06-05 09h08m07 n2.pdf"_s);
  ASSERT_TRUE(QDir().mkpath(Chemin({})));
  QFile fichier(pris);
  ASSERT_TRUE(fichier.open(QIODevice::WriteOnly));
  fichier.write("un autre");
  fichier.close();

  const QString premier = Imprimer({{}, u"Premier"_s});
  const QString second = Imprimer({{}, u"Second"_s});
  EXPECT_EQ(QFileInfo(premier).fileName(), u"Enveloppe 2026-06-05 09h08m07 n1.pdf"_s);
  EXPECT_EQ(QFileInfo(second).fileName(), u"Enveloppe 2026-06-05 09h08m07 n3.pdf"_s);
  EXPECT_NEAR(LirePage(premier).Mot(u"Premier"_s).gauche, 80, kTolerance);
  EXPECT_NEAR(LirePage(second).Mot(u"Second"_s).gauche, 80, kTolerance);
  ASSERT_TRUE(fichier.open(QIODevice::ReadOnly));
  EXPECT_EQ(fichier.readAll(), "un autre");
}

TEST_F(Impression, DossierImpossible) {
  QFile obstacle(dossier_.filePath(u"obstacle"_s));
  ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
  ImprimanteSysteme imprimante(horloge_, obstacle.fileName() + u"/courrier"_s);
  EXPECT_TRUE(Finir(imprimante, {{}, u"Perdu"_s}).raison.contains(obstacle.fileName()));
  EXPECT_EQ(obstacle.size(), 0);
}

TEST_F(Impression, DisquePlein) {
  {
    const DisquePlein plein(4096);
    EXPECT_TRUE(Finir(imprimante_, {u"Perdu"_s, u"Perdu"_s}).raison.contains(u"plus de place"_s));
  }
  EXPECT_EQ(Fichiers(), QStringList());
  EXPECT_NEAR(ImprimerEtLire({{}, u"Ensuite"_s}).Mot(u"Ensuite"_s).gauche, 80, kTolerance);
}

class ImpressionDeListe : public Impression {
 protected:
  static constexpr double kMarge = 15, kLargeur = 210, kHauteur = 297;
  static constexpr double kInterligne =
      1.1499 * kPoint.valeur;  // for each point of the font's size

  /// Prints a list whose names are HHHH0, HHHH1...; each has an address and two lines more.
  FinImpression Imprimer(qsizetype nombre) {
    const CadreListe cadre{u"HHHH"_s, nombre, horloge_.Maintenant()};
    return ImprimerListe(imprimante_, cadre, {}, [](qsizetype n) -> std::optional<Correspondant> {
      Correspondant fiche;
      fiche.NomVelmira = u"HHHH%1"_s.arg(n);
      fiche.Ligne2 = u"rue%1"_s.arg(n);
      fiche.Tel = u"tel%1"_s.arg(n);
      fiche.Web = u"web%1"_s.arg(n);
      return fiche;
    });
  }
};

TEST_F(ImpressionDeListe, UnEtDeuxCorrespondants) {
  const QString un = Imprimer(1).fichier;
  EXPECT_EQ(QFileInfo(un).fileName(), u"Liste 2026-06-05 09h08m07 n1.pdf"_s);
  EXPECT_EQ(LirePage(un).Mot(u"1"_s).haut, LirePage(un).Mot(u"enregistrements"_s).haut);
  EXPECT_TRUE(std::isnan(LirePage(un).Mot(u"HHHH0"_s).haut));

  const QString deux = Imprimer(2).fichier;
  const PageLue page = LirePage(deux);
  EXPECT_EQ(page.largeur, 595);
  EXPECT_EQ(page.hauteur, 842);
  const Cadre titre = page.Mot(u"Velmiras"_s), proprietaire = page.Mot(u"HHHH"_s);
  EXPECT_NEAR(titre.gauche, kMarge, kTolerance);
  EXPECT_NEAR(titre.haut, kMarge + 10 * kInterligne, kTolerance);
  EXPECT_NEAR(proprietaire.droite - proprietaire.gauche, 2.8887 * 14 * kPoint.valeur, kTolerance);

  // The name, its address, a blank line, two lines more and a blank line.
  double y = kMarge + (10 + 5 * 14) * kInterligne;
  for (int n = 0; n < 2; ++n) {
    const struct {
      QString mot;
      int lignes;
    } attendus[] = {{u"HHHH%1"_s.arg(n), 0},
                    {u"rue%1"_s.arg(n), 1},
                    {u"tel%1"_s.arg(n), 3},
                    {u"web%1"_s.arg(n), 4}};
    for (const auto &a : attendus)
      EXPECT_NEAR(page.Mot(a.mot).haut, y + a.lignes * 10 * kInterligne, kTolerance)
          << qPrintable(a.mot);
    y += 6 * 10 * kInterligne;
  }
  const Cadre nom = page.Mot(u"HHHH0"_s);
  EXPECT_NEAR(nom.droite - nom.gauche, (2.8887 + 0.5562) * 10 * kPoint.valeur, kTolerance);
  const Cadre pied = page.Mot(u"Imprimé"_s);
  EXPECT_NEAR(pied.haut, y + 3 * 10 * kInterligne, kTolerance);
  EXPECT_NEAR(page.Mot(u"Velmira"_s).haut, pied.haut + 8 * kInterligne, kTolerance);

  const QString polices = QString::fromUtf8(Executer(u"pdffonts"_s, {deux}));
  EXPECT_TRUE(polices.contains(u"LiberationSans-Bold "_s)) << qPrintable(polices);
  EXPECT_TRUE(polices.contains(u"LiberationSans "_s)) << qPrintable(polices);
}

TEST_F(ImpressionDeListe, CinqCentsCorrespondants) {
  constexpr int kNombre = 500;
  // In a thread of its own, without an event loop.
  const auto fin = std::async(std::launch::async, [this] { return Imprimer(kNombre); }).get();
  const auto pages = LirePages(fin.fichier);

  // The head is as high as 8 lines of 10 points; three blank lines and the foot come last.
  const double ligne = 10 * kInterligne;
  const int parPage = static_cast<int>((kHauteur - 2 * kMarge) / ligne);
  ASSERT_EQ(pages.size(), static_cast<std::size_t>((8 + 6 * kNombre + 3 + 2) / parPage + 1));
  EXPECT_FALSE(std::isnan(pages.front().Mot(u"HHHH0"_s).haut));
  EXPECT_FALSE(std::isnan(pages.back().Mot(u"HHHH499"_s).haut));
  EXPECT_FALSE(std::isnan(pages.back().Mot(u"Imprimé"_s).haut));

  // Every line once, in its order, none of them in the margins, and the pages filled.
  QStringList trouves, attendus;
  for (int n = 0; n < kNombre; ++n)
    attendus << u"HHHH%1"_s.arg(n) << u"rue%1"_s.arg(n) << u"tel%1"_s.arg(n) << u"web%1"_s.arg(n);
  for (std::size_t i = 0; i < pages.size(); ++i) {
    double bas = 0;
    for (const auto &[mot, cadre] : pages[i].mots) {
      static const QRegularExpression ligneDeFiche(u"^(HHHH|rue|tel|web)\\d+$"_s);
      if (ligneDeFiche.match(mot).hasMatch()) trouves << mot;
      EXPECT_GE(cadre.haut, kMarge - kTolerance) << qPrintable(mot);
      EXPECT_LE(cadre.bas, kHauteur - kMarge + kTolerance) << qPrintable(mot);
      bas = std::max(bas, cadre.bas);
    }
    if (i + 1 < pages.size()) {
      EXPECT_GE(bas, kHauteur - kMarge - 3 * ligne);
    }
  }
  EXPECT_EQ(trouves, attendus);
}

// What is wider than the page ends at the margin, and goes on below.
TEST_F(ImpressionDeListe, LignesLarges) {
  const QString mot(150, u'm');
  const CadreListe cadre{u"HHHH"_s, 2, horloge_.Maintenant()};
  const auto lire = [&](qsizetype) {
    Correspondant fiche;
    fiche.NomVelmira = u"Nom"_s;
    fiche.Ligne2 = u"Direction des relations avec les voyageurs"_s;
    fiche.Ligne3 = u"Immeuble « Les Trois Écluses », deuxième étage"_s;
    fiche.Ligne4 = u"238 bis boulevard du Maréchal-de-Lattre"_s;
    fiche.Ville = u"NIORT CEDEX 9"_s;
    fiche.Web = mot;
    return std::optional(fiche);
  };
  const PageLue page = LirePage(ImprimerListe(imprimante_, cadre, {}, lire).fichier);
  qsizetype signes = 0;
  double droite = 0;
  for (const auto &[texte, cadreDuMot] : page.mots) {
    EXPECT_LE(cadreDuMot.droite, kLargeur - kMarge + kTolerance) << qPrintable(texte);
    droite = std::max(droite, cadreDuMot.droite);
    if (texte.startsWith(u"mm"_s)) signes += texte.size();
  }
  EXPECT_GT(droite, kLargeur - kMarge - 4);  // not broken earlier than it must
  EXPECT_EQ(signes, 2 * mot.size());
  EXPECT_NEAR(page.Mot(u"238"_s).gauche, kMarge, kTolerance);
  EXPECT_NEAR(page.Mot(u"238"_s).haut, page.Mot(u"Direction"_s).haut + 10 * kInterligne,
              kTolerance);
}

TEST_F(ImpressionDeListe, TailleDeLaPage) {
  const auto estGrande = [this](const DescriptionDocument &description, double largeur,
                                double hauteur) {
    const auto document = imprimante_.Ouvrir(Imprimante::NomPdf(), description);
    EXPECT_NEAR(document->LargeurPage().valeur, largeur, kTolerance);
    EXPECT_NEAR(document->HauteurPage().valeur, hauteur, kTolerance);
  };
  estGrande({.nom = u"Liste"_s, .margeFichier = Millimetres(kMarge)}, kLargeur - 2 * kMarge,
            kHauteur - 2 * kMarge);
  // An envelope keeps the whole sheet.
  estGrande({.orientation = Orientation::Portrait}, 210, 297);
  estGrande({.orientation = Orientation::Paysage}, 297, 210);
}

TEST_F(ImpressionDeListe, DisquePlein) {
  {
    const DisquePlein plein(4096);
    EXPECT_TRUE(Imprimer(2).raison.contains(u"plus de place"_s));
  }
  EXPECT_EQ(Fichiers(), QStringList());
}

}  // namespace

int main(int argc, char *argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("CUPS_SERVER", "127.0.0.1:1");  // nothing must reach the printer of this machine
  testing::InitGoogleTest(&argc, argv);
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
