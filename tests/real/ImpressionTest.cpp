// Paper, measured with poppler: into which files the printer "PDF" puts it, the sheets of a real
// print server and what that refuses, and a server that keeps silent.

#include "Reel.h"
#include "commun/HorlogeFixe.h"
#include "envelope/Envoi.h"
#include "platform/linux/ImprimanteSysteme.h"

#include <QRectF>
#include <QRegularExpression>
#include <QTcpServer>

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

class Papier : public testing::Test {
 protected:
  Papier() {
    plomex_.Orientation = OrientationFeuille::Portrait;
    plomex_.BordImprime = BordImprime::Droit;
    plomex_.PositionEnveloppe = PositionEnveloppe::Milieu;
    plomex_.PoliceE = u"Liberation Sans"_s, plomex_.PoliceA = u"Liberation Mono"_s;
    plomex_.TailleE = 8, plomex_.TailleA = 14, plomex_.AlignA = Alignement::Droite;
    etat_.Commentaire = u"Recommandé"_s;
  }

  FinImpression Imprimer(const QString &appareil) {
    const ContenuEnveloppe contenu{u"Expéditrice"_s, u"Établissements\nRue\n\nNANTES"_s, true};
    return *ImprimerPlis(imprimante_, appareil, plomex_, {{etat_, contenu}});
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

using Impression = Papier;

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
class Cups : public Papier {
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
  bool AjouterFile(const QString &nom, const QByteArray &filtre, const QString &sortie) const {
    Ecrire(nom, "*PPD-Adobe: \"4.3\"|*cupsFilter2: \"application/vnd.cups-pdf application/pdf 0 " +
                    filtre +
                    "\"|*OpenUI *PageSize: PickOne|*DefaultPageSize: A4|"
                    "*PageSize A4: \"<</PageSize[595 842]>>setpagedevice\"|*CloseUI: *PageSize|"
                    "*ImageableArea A4: \"8.504 34.016 575.433 827.717\"|"
                    "*PaperDimension A4: \"595.276 841.89\"|");
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

using ServeurMuet = Papier;

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
    return Remettre(imprimante_, u"HP"_s, plomex_, {{}}, {.arret = abandon.get_token()});
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
