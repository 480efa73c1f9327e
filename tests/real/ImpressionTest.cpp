// Paper, measured with poppler: into which files the printer "PDF" puts it, the sheets of a real
// print server and what that refuses, and a server that keeps silent.

#include "Reel.h"
#include "commun/HorlogeFixe.h"
#include "envelope/Envoi.h"
#include "envelope/PageEtalon.h"
#include "platform/linux/ImprimanteSysteme.h"

#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QRegularExpression>
#include <QTcpServer>

#include <algorithm>
#include <future>
#include <stop_token>

namespace {

constexpr double kTolerance = 0.3;

/// The words of a page and their places, in millimetres from its top left corner; "" is the page.
using Page = QHash<QString, QRectF>;

QList<Page> LirePages(const QString &pdf) {
  static const QRegularExpression kBalise(
      u"(?:xMin=\"(.*)\" yMin=\"(.*)\" xMax|<page width)=\"(.*)\" (?:yMax|height)=\"(.*)\">([^<]*)"_s);
  QList<Page> pages;
  const QString lu = QString::fromUtf8(Executer(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s}));
  for (const QRegularExpressionMatch &balise : kBalise.globalMatch(lu)) {
    const auto mm = [&](int i) { return balise.captured(i).toDouble() * kPoint.valeur; };
    if (!balise.hasCaptured(1)) pages.append(Page());
    pages.back()[balise.captured(5).trimmed()] = {QPointF(mm(1), mm(2)), QPointF(mm(3), mm(4))};
  }
  return pages;
}

/// A free port of this computer, at which the print server is looked for from now on.
struct Ecoute : QTcpServer {
  Ecoute() {
    EXPECT_TRUE(listen(QHostAddress::LocalHost));
    qputenv("CUPS_SERVER", "127.0.0.1:" + QByteArray::number(serverPort()));
  }
};

class SurPapier : public testing::Test {
 protected:
  SurPapier() {
    plomex_.Orientation = OrientationFeuille::Portrait;
    plomex_.BordImprime = BordImprime::Droit;
    plomex_.PositionEnveloppe = PositionEnveloppe::Milieu;
    plomex_.PoliceE = u"Liberation Sans"_s, plomex_.PoliceA = u"Liberation Mono"_s;
    plomex_.TailleE = 8, plomex_.TailleA = 14, plomex_.AlignA = Alignement::Droite;
    etat_.Commentaire = u"Recommandé"_s;
  }

  FinImpression Imprimer(const QString &appareil) {
    const ContenuEnveloppe contenu{u"Expéditrice"_s, u"Établissements\nRue\n\nNANTES"_s, true};
    return *ImprimerPlis(imprimante_, appareil, plomex_, Imprimantes(dossier_.path()),
                         {{etat_, contenu}});
  }

  /// Why nothing was printed.
  QString Refus(const QString &appareil) {
    try {
      return Imprimer(appareil).raison;
    } catch (const Erreur &erreur) {
      return erreur.Texte();
    }
  }
  QString Pdf() { return Imprimer(pdf_).fichier; }
  QString Chemin(const QString &nom) const { return dossier_.filePath(nom); }

  /// That envelope on its page, with its address and its sender at these places.
  static void Verifier(const Page &page, double largeur, QPointF adresse, QPointF expediteur) {
    const double taille = 14 * kPoint.valeur;
    const double mot = 14 * 0.6001 * taille, lignes = 3 * 1.1328 * taille;  // of the font
    const QRectF nom = page[u"Établissements"_s], ville = page[u"NANTES"_s],
                 nous = page[u"Expéditrice"_s], commentaire = page[u"Recommandé"_s];
    const double cotes[][2] = {{page[{}].width(), largeur},    {nom.left(), adresse.x()},
                               {nom.top(), adresse.y()},       {nom.width(), mot},
                               {ville.right(), nom.right()},   {ville.top(), adresse.y() + lignes},
                               {nous.left(), expediteur.x()},  {nous.top(), expediteur.y()},
                               {commentaire.top(), nous.top()}};
    for (const auto &cote : cotes) EXPECT_NEAR(cote[0], cote[1], kTolerance) << &cote - cotes;
  }

  const QString pdf_ = Imprimante::NomPdf();
  QTemporaryDir dossier_;
  HorlogeFixe horloge_;
  ImprimanteSysteme imprimante_{horloge_, Chemin(u"courrier"_s)};
  ReglagesPlomex plomex_;
  EtatEnveloppe etat_;
};

using Impression = SurPapier;

TEST_F(Impression, EnveloppesSurLaPage) {
  const QString simple = Pdf();
  Verifier(LirePages(simple)[0], 210, {80, 50}, {2, 5});
  etat_.CommentaireSouligne = true;
  const auto image = [](const QString &pdf) {
    return Executer(u"pdftoppm"_s, {u"-gray"_s, u"-r"_s, u"40"_s, pdf});
  };
  EXPECT_NE(image(Pdf()), image(simple)) << "underlined";
  plomex_.GrasDLigne = true;
  etat_.CommentaireGras = true;
  const QString gras = Pdf();
  const QByteArray polices = Executer(u"pdffonts"_s, {gras});
  for (const char *police : {"Sans-Bold ", "Sans ", "Mono-Bold ", "Mono "})
    EXPECT_TRUE(polices.contains(QByteArray("Liberation") + police)) << police;
  EXPECT_NEAR(LirePages(gras)[0][u"Recommandé"_s].right(), 180, kTolerance) << "its bold width";

  plomex_.Orientation = OrientationFeuille::Paysage;
  etat_.LargeurEnv = Millimetres(162), etat_.HauteurEnv = Millimetres(114);
  Verifier(LirePages(Pdf())[0], 297, {116.909, 49.818}, {60, 3.182});
}

// None is replaced, and none is left of what is given up or does not fit.
TEST_F(Impression, Fichiers) {
  EXPECT_EQ(imprimante_.Noms(), QStringList(pdf_)) << "there is no server";
  EXPECT_EQ(imprimante_.ParDefaut(), pdf_);
  EXPECT_TRUE(Refus(u"Imprimante disparue"_s).contains(u"ne l'a plus"_s));
  imprimante_.Ouvrir(pdf_, {.nom = u"Perdu"_s})->NouvellePage();
  {
    const DisquePlein plein(4096);
    EXPECT_TRUE(Refus(pdf_).contains(u"plus de place"_s));
  }
  EXPECT_EQ(QDir(Chemin(u"courrier"_s)).entryList(QDir::Files | QDir::Hidden), QStringList());

  const QString nom = Chemin(u"courrier/Enveloppe Établissements 2026-06-05 09h08m07 n%1.pdf"_s);
  const QString pris = nom.arg(2);
  RemplacerFichier(pris, "un autre");
  EXPECT_EQ(Pdf(), nom.arg(1));
  EXPECT_EQ(Imprimer(pdf_), (FinImpression{FinImpression::Issue::Enregistree, nom.arg(3)}));
  EXPECT_EQ(LireFichier(pris), QByteArray("un autre"));
}

// From corner to corner between margins, in a thread without an event loop.
TEST_F(Impression, PagesAvecMarge) {
  const auto imprimer = [&] {
    const Police police{u"Liberation Sans"_s, 10};
    const auto liste =
        imprimante_.Ouvrir(pdf_, {.nom = u"Liste"_s, .margeFichier = Millimetres(15)});
    const Millimetres droite = liste->LargeurPage() - liste->Largeur(u"fin"_s, police);
    liste->Ecrire({}, {}, police, u"début"_s);
    liste->NouvellePage();
    liste->Ecrire(droite, liste->HauteurPage() - liste->HauteurLigne(police), police, u"fin"_s);
    return liste->Terminer().fichier;
  };
  const QList<Page> pages = LirePages(std::async(std::launch::async, imprimer).get());
  ASSERT_EQ(pages.size(), 2);
  const QPointF debut = pages[0][u"début"_s].topLeft(), fin = pages[1][u"fin"_s].bottomRight();
  EXPECT_LT((debut - QPointF(15, 15)).manhattanLength(), kTolerance);
  EXPECT_LT((fin - QPointF(210 - 15, 297 - 15)).manhattanLength(), kTolerance);
}

/// With the queue "Enveloppes", whose printer leaves each sheet in the file `recu`.
class Cups : public SurPapier {
 protected:
  Cups() {
    { const Ecoute portLibre; }
    qputenv("PATH", qgetenv("PATH") + ":/usr/sbin");
    // Started by root, it runs its filters under another account, which must get there.
    QFile::setPermissions(dossier_.path(), QFile::Permissions(0x7755));
    CreerDossier(Chemin(u"r/t"_s));
    Ecrire(u"fichiers"_s,
           "ServerRoot %1|CacheDir %1/c|StateDir %1/e|RequestRoot %1/r|"
           "TempDir %1/r/t|ServerKeychain %1|AccessLog %1/a|PageLog %1/p|"
           "ErrorLog %1/erreurs|Printcap %1/i|FileDevice Yes|");
    // Over a socket alone it would not hand out the description of a printer.
    Ecrire(u"conf"_s, "Listen " + qgetenv("CUPS_SERVER") +
                          "|Browsing Off|DefaultAuthType None|<Policy default>|<Limit All>|"
                          "Order deny,allow|</Limit>|</Policy>|");
    serveur_.start(u"cupsd"_s,
                   {u"-f"_s, u"-c"_s, Chemin(u"conf"_s), u"-s"_s, Chemin(u"fichiers"_s)});
    while (!AjouterFile(u"Enveloppes"_s, "-", recu_) && !serveur_.waitForFinished(50)) {
    }
    Executer(u"lpadmin"_s, {u"-d"_s, u"Enveloppes"_s});
  }

  void Ecrire(const QString &nom, QByteArray texte) const {
    texte.replace("%1", QFile::encodeName(dossier_.path())).replace('|', '\n');
    RemplacerFichier(Chemin(nom), texte);
  }

  /// A queue through this filter, for a printer of A4 with four different margins: left 3 mm, top
  /// 5, right 7, bottom 12.
  bool AjouterFile(const QString &nom, const QByteArray &filtre, const QString &sortie,
                   const QByteArray &autres = {}) const {
    Ecrire(nom, "*PPD-Adobe: \"4.3\"|*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 " +
                    filtre +
                    "\"|*OpenUI *PageSize: PickOne|*DefaultPageSize: A4|"
                    "*PageSize A4: \"<</PageSize[595 842]>>setpagedevice\"|*CloseUI: *PageSize|"
                    "*ImageableArea A4: \"8.504 34.016 575.433 827.717\"|"
                    "*PaperDimension A4: \"595.276 841.89\"|" +
                    autres);
    return QProcess::execute(u"lpadmin"_s, {u"-p"_s, nom, u"-E"_s, u"-v"_s, u"file:"_s + sortie,
                                            u"-P"_s, Chemin(nom)}) == 0;
  }
  static bool FileVide() { return Executer(u"lpstat"_s, {u"-o"_s}).isEmpty(); }

  Page Recue(const FinImpression &fin) {
    EXPECT_EQ(fin, FinImpression{FinImpression::Issue::Imprimee});
    Attendre(FileVide);
    return LirePages(recu_).value(0);
  }
  void VerifierRefus(const QString &appareil, const QString &raison) {
    EXPECT_TRUE(Refus(appareil).contains(raison)) << qPrintable(raison);
    EXPECT_TRUE(FileVide()) << "it would be printed later";
  }

  const QString recu_ = Chemin(u"recu"_s);
  QProcess serveur_;
};

TEST_F(Cups, FeuillesEtRefus) {
  const QString file = u"Enveloppes"_s, panne = u"Panne"_s;
  EXPECT_TRUE(AjouterFile(pdf_, "-", u"/dev/null"_s)) << "not to be mistaken for the built-in one";
  EXPECT_EQ(imprimante_.Noms(), QStringList({file, pdf_}));
  EXPECT_EQ(imprimante_.ParDefaut(), file);
  imprimante_.Ouvrir(file, {.nom = u"Abandonné"_s})->NouvellePage();
  const QString refus[][3] = {{u"cupsreject"_s, u"cupsaccept"_s, u"n'accepte plus"_s},
                              {u"cupsdisable"_s, u"cupsenable"_s, u"arrêtée"_s}};
  for (const auto &[ote, rend, raison] : refus) {
    Executer(ote, {file});
    VerifierRefus(file, raison);
    Executer(rend, {file});
  }
  EXPECT_FALSE(QFile::exists(recu_));

  // The address lies at the far end: nothing is scaled to the printable area. A landscape page lies
  // on the upright sheet with its top at the sheet's right edge.
  plomex_.MargeMAX = Millimetres(20), plomex_.MargeMAY = Millimetres(130);
  Verifier(Recue(Imprimer(file)), 210, {3 + 100, 5 + 180}, {3 + 2, 5 + 5});
  plomex_.Orientation = OrientationFeuille::Paysage;
  plomex_.MargeMAX = Millimetres(100), plomex_.MargeMAY = Millimetres(80);
  Page page = Recue(Imprimer(file));
  for (QRectF &place : page)
    place = {place.top(), 210 - place.right(), place.height(), place.width()};
  Verifier(page, 297, {5 + 180, 7 + 130}, {5 + 2, 7 + 5});

  // More than goes to the server at once.
  const auto longue = imprimante_.Ouvrir(file, {.nom = u"Longue"_s});
  for (int n = 0; n < 8'000; ++n) {
    const int rang = n / 40;
    longue->Ecrire(Millimetres(n % 40 * 5), Millimetres(rang), {u"Liberation Sans"_s, 2},
                   QString::number(100'000 + n));
  }
  EXPECT_NEAR(Recue(longue->Terminer())[u"107999"_s].top(), 5 + 199, kTolerance);

  // A queue that takes nothing but sheets that are printed on one side.
  Ecrire(u"recto"_s, "#!/bin/sh|case \"$5\" in *sides=one-sided*) exec cat;; esac|exit 1|");
  QFile::setPermissions(Chemin(u"recto"_s), QFile::Permissions(0x7755));
  EXPECT_TRUE(AjouterFile(u"Recto"_s, Chemin(u"recto"_s).toUtf8(), u"/dev/null"_s));
  EXPECT_EQ(Imprimer(u"Recto"_s).issue, FinImpression::Issue::Imprimee);

  EXPECT_TRUE(AjouterFile(panne, "/bin/false", u"/dev/null"_s));
  VerifierRefus(panne, u"abandonné"_s);
  const auto ouvert = imprimante_.Ouvrir(panne, {.nom = u"Enveloppe"_s});
  Executer(u"lpadmin"_s, {u"-x"_s, panne});  // last: now and then the server ends by that
  EXPECT_TRUE(ouvert->Terminer().raison.contains(u"ne l'a plus"_s));
}

constexpr double kParMm = 10;  // points of a printed sheet, in either direction

/// The page on a sheet that was printed as an image of 254 points an inch.
QImage EnPage(const QByteArray &image, const Papier &papier) {
  const Taille taille = papier.Feuille();
  QImage feuille((QSizeF(taille.largeur.valeur, taille.hauteur.valeur) * kParMm).toSize(),
                 QImage::Format_Grayscale8);
  feuille.fill(Qt::white);
  QPainter(&feuille).drawImage(0, 0, QImage::fromData(image));
  const int tour = papier.tour == Tour::Droite ? -90 : papier.tour == Tour::Gauche ? 90 : 0;
  return feuille.transformed(QTransform().rotate(tour));
}

/// The dark points of a column or of a row within a place on the page, in millimetres, one by one.
QList<int> Noirs(const QImage &page, const QRectF &ou, bool colonnes) {
  const QRect points = QRectF(ou.topLeft() * kParMm, ou.size() * kParMm).toRect() & page.rect();
  QList<int> noirs(colonnes ? points.width() : points.height());
  for (int y = points.top(); y <= points.bottom(); ++y)
    for (int x = points.left(); x <= points.right(); ++x)
      noirs[colonnes ? x - points.left() : y - points.top()] += qGray(page.pixel(x, y)) < 128;
  return noirs;
}

/// Where the longest line lies there: the middle of its width.
double Ligne(const QImage &page, const QRectF &ou, bool debout) {
  const QList<int> noirs = Noirs(page, ou, debout);
  const int plus = *std::ranges::max_element(noirs);
  double somme = 0, nombre = 0;
  for (qsizetype i = 0; i < noirs.size(); ++i)
    if (noirs[i] > plus / 2) somme += double(i) + 0.5, ++nombre;
  return (debout ? ou.left() : ou.top()) + somme / nombre / kParMm;
}

/// The ends of what is written there.
QList<double> Encre(const QImage &page, const QRectF &ou) {
  QList<double> bords;
  for (const bool colonnes : {true, false}) {
    const QList<int> noirs = Noirs(page, ou, colonnes);
    const auto noir = [](int n) { return n > 0; };
    const auto debut = std::ranges::find_if(noirs, noir) - noirs.begin();
    const auto fin = std::ranges::find_if(noirs.rbegin(), noirs.rend(), noir) - noirs.rbegin();
    bords << double(debut) / kParMm << double(noirs.size() - fin) / kParMm;
  }
  return bords;
}

QRectF Autour(Point milieu, double largeur, double hauteur) {
  return {milieu.x.valeur - largeur / 2, milieu.y.valeur - hauteur / 2, largeur, hauteur};
}

/// As somebody with a ruler does it.
MesureEtalon Mesurer(const QImage &page, const MesureEtalon &voulue) {
  const QRectF ou = Autour(voulue.croix, 18, 18);
  const Point croix{Millimetres(Ligne(page, ou, true)), Millimetres(Ligne(page, ou, false))};
  const auto bout = [&](double x, double y, bool debout) {
    const Point la = croix + Point{Millimetres(x), Millimetres(y)};
    return Ligne(page, debout ? Autour(la, 6, 5) : Autour(la, 5, 6), debout);
  };
  const double demiX = voulue.regleX.valeur / 2, demiY = voulue.regleY.valeur / 2;
  const double y = voulue.croix.y.valeur * 0.44, x = voulue.croix.x.valeur * 0.56;
  return {croix, Millimetres(bout(demiX, y, true) - bout(-demiX, y, true)),
          Millimetres(bout(x, demiY, false) - bout(x, -demiY, false))};
}

// A printer that makes its pages smaller and shifts them is measured, corrected and measured again;
// then an envelope comes out of it as in a file. What it was sent stands before the image; what is
// set for all documents turns and gathers nothing.
TEST_F(Cups, Etalonnee) {
  const QString nom = u"Decalee"_s;
  Ecrire(u"decale"_s, "#!/bin/sh|echo \"$5\"|exec pdftoppm -gray -r 250.19 -x -30 -y 20 -|");
  QFile::setPermissions(Chemin(u"decale"_s), QFile::Permissions(0x7755));
  ASSERT_TRUE(AjouterFile(nom, Chemin(u"decale"_s).toUtf8(), recu_,
                          "*PageSize EnvDL/DL: \"\"|*ImageableArea EnvDL: \"9 9 303 615\"|"
                          "*PaperDimension EnvDL: \"311.811 623.622\"|*VariablePaperSize: True|"
                          "*CustomPageSize True: \"\"|*ParamCustomPageSize Width: 1 points 100 700|"
                          "*ParamCustomPageSize Height: 2 points 100 1000|*MaxMediaWidth: \"700\"|"
                          "*MaxMediaHeight: \"1000\"|*HWMargins: 9 9 9 9|"));
  Executer(u"lpadmin"_s, {u"-p"_s, nom, u"-o"_s, u"number-up-default=2"_s, u"-o"_s,
                          u"orientation-requested-default=4"_s});
  Imprimantes imprimantes(dossier_.path());
  plomex_.MargeMEX = Millimetres(18), plomex_.MargeMEY = Millimetres(8);
  const struct {
    int largeur, hauteur;
    PapierEnveloppe cote;
    BordImprime bord;
    QByteArray support;
    QString envoi;
  } cas[] = {
      {220, 110, PapierEnveloppe::GrandCote, BordImprime::Droit, "custom_220x110mm_220x110mm",
       u"papier sur mesure 220 × 110 mm, sans rotation, bac choisi par l'imprimante"_s},
      {220, 110, PapierEnveloppe::PetitCote, BordImprime::Gauche, "iso_dl_110x220mm",
       u"papier 110 × 220 mm, tournée à droite, bac choisi par l'imprimante"_s},
      {229, 162, PapierEnveloppe::GrandCote, BordImprime::Droit, "custom_229x162mm_229x162mm",
       u"papier sur mesure 229 × 162 mm, sans rotation, bac choisi par l'imprimante"_s},
      {229, 162, PapierEnveloppe::PetitCote, BordImprime::Droit, "custom_162x229mm_162x229mm",
       u"papier sur mesure 162 × 229 mm, tournée à gauche, bac choisi par l'imprimante"_s},
  };
  for (const auto &[largeur, hauteur, cote, bord, support, envoi] : cas) {
    etat_.LargeurEnv = Millimetres(largeur), etat_.HauteurEnv = Millimetres(hauteur);
    plomex_.BordImprime = bord;
    for (const QString &une : {u"Enveloppes"_s, nom, pdf_}) {
      plomex_.Imprimante = une;
      imprimantes.Garder(plomex_, cote);
    }
    const Papier papier = PapierPour(plomex_, cote, {etat_.LargeurEnv, etat_.HauteurEnv});
    const auto recue = [&, &support = support, &envoi = envoi](const FinImpression &fin) {
      EXPECT_EQ(fin, (FinImpression{.issue = FinImpression::Issue::Imprimee, .envoi = envoi}));
      Attendre(FileVide);
      const QByteArray recu = LireFichier(recu_).value_or(QByteArray());
      const auto options = recu.left(recu.indexOf('\n'));
      EXPECT_TRUE(options.contains("media=" + support + ' ')) << options.constData();
      return EnPage(recu.mid(options.size() + 1), papier);
    };
    const MesureEtalon voulue = EtalonVoulu(papier.page);
    const auto mesurer = [&] {
      const Correction enVigueur = imprimantes.CorrectionDe(nom, papier);
      const MesureEtalon m =
          Mesurer(recue(ImprimerEtalon(imprimante_, nom, papier, enVigueur)), voulue);
      imprimantes.Garder(nom, papier, Corriger(enVigueur, voulue, m));
      const Point ecart = m.croix - voulue.croix;
      return std::max({std::abs(ecart.x.valeur), std::abs(ecart.y.valeur),
                       std::abs((m.regleX - voulue.regleX).valeur),
                       std::abs((m.regleY - voulue.regleY).valeur)});
    };
    const double avant = mesurer(), apres = mesurer();
    printf("%s: %.1f mm off before, %.1f after\n", qPrintable(papier.Nom()), avant, apres);
    EXPECT_GT(avant, 1.5);
    EXPECT_LT(apres, kTolerance);
    const QImage faite = recue(Imprimer(nom));
    const QString pdf = Pdf();
    EXPECT_NEAR(LirePages(pdf)[0][{}].height(), hauteur, kTolerance) << "the envelope alone";
    const QImage attendue =
        EnPage(Executer(u"pdftoppm"_s, {u"-gray"_s, u"-r"_s, u"254"_s, pdf}), {papier.page});
    const double dl = hauteur / 110.;
    for (const QRectF &ou :
         {QRectF(80 * largeur / 220. - 3, 48 * dl, 70, 26), QRectF(18, 12 * dl, 40, 7)}) {
      const QList<double> la = Encre(faite, ou), voulus = Encre(attendue, ou);
      for (int i = 0; i < 4; ++i) EXPECT_NEAR(la[i], voulus[i], kTolerance) << i;
    }
    EXPECT_TRUE(Refus(u"Enveloppes"_s).contains(u"ne prend pas de papier"_s)) << "it has A4 alone";
  }
}

using ServeurMuet = SurPapier;

// It takes connections and never says a word: whoever waits for it is told so, the windows go on
// meanwhile, and the end of the program does not wait.
TEST_F(ServeurMuet, EstDitSansRetenir) {
  Ecoute serveur;
  std::optional<bool> reponse;
  imprimante_.Demander(qApp, [&](bool repondu) { reponse = repondu; });
  EXPECT_TRUE(serveur.waitForNewConnection(-1));
  auto refus = std::async(std::launch::async, [&] { return Refus(u"HP"_s); });
  EXPECT_TRUE(serveur.waitForNewConnection(-1));
  {
    ImprimanteSysteme quittee(horloge_);
    quittee.Demander(qApp, [](bool) { ADD_FAILURE() << "nobody waits any more"; });
    EXPECT_TRUE(serveur.waitForNewConnection(-1));
  }
  std::stop_source abandon;
  auto abandonne = std::async(std::launch::async, [&] {
    return Remettre(imprimante_, u"HP"_s, plomex_, Imprimantes({}), {{}},
                    {.arret = abandon.get_token()});
  });
  EXPECT_TRUE(serveur.waitForNewConnection(-1));
  abandon.request_stop();
  EXPECT_EQ(abandonne.get().issue, FinEnvoi::Issue::Arretee);
  // Had one of them been waited for, the first answer would come with the first events.
  for (int i = 0; i < 50; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(reponse, std::nullopt);
  EXPECT_EQ(imprimante_.NomsConnus(), QStringList(pdf_));
  Attendre([&] { return reponse.has_value(); });
  EXPECT_EQ(reponse, false);
  EXPECT_TRUE(refus.get().contains(u"ne répond pas"_s));
}

}  // namespace
