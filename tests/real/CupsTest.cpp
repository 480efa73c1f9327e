// What a real print server and a printer with four different margins make of a page: it is printed
// as the envelope window prints it, and measured on the sheet that arrived.

#include "commun/HorlogeFixe.h"
#include "envelope/MiseEnPage.h"
#include "platform/Erreurs.h"
#include "platform/linux/ImprimanteSysteme.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QHash>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <QXmlStreamReader>

#include <arpa/inet.h>
#include <future>
#include <gtest/gtest.h>
#include <limits>
#include <netinet/in.h>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

constexpr double kTolerance = 0.3;  // millimetres
constexpr double kNulle = std::numeric_limits<double>::quiet_NaN();

// The sheet, and the margins of the printer that avec_cups.sh starts.
constexpr double kLargeurFeuille = 210, kHauteurFeuille = 297;
constexpr double kMargeHaut = 5, kMargeDroite = 7, kMargeGauche = 3;

// What a server under load may take to hand a page on.
constexpr int kPatience = 60'000;  // milliseconds

// The window is not held up for longer by a printer or a server that is not there. Milliseconds.
constexpr qint64 kImmediat = 5'000;
constexpr qint64 kPeu = 1'500;

/// Millimetres from the top left corner. What was not found is near to nothing.
struct Cadre {
  double gauche = kNulle, haut = kNulle, droite = kNulle, bas = kNulle;
};

/// A page as one reads it: a landscape page lies on the sheet with its top at the sheet's right
/// edge.
Cadre SurLaPage(const Cadre &feuille, bool portrait) {
  if (portrait) return feuille;
  return {feuille.haut, kLargeurFeuille - feuille.droite, feuille.bas,
          kLargeurFeuille - feuille.gauche};
}

struct Feuilles {
  int nombre = 0;
  double largeur = 0, hauteur = 0;  // millimetres
  QHash<QString, Cadre> mots;
};

QByteArray Executer(const QString &programme, const QStringList &arguments) {
  QProcess processus;
  processus.start(programme, arguments);
  EXPECT_TRUE(processus.waitForFinished(kPatience)) << qPrintable(programme);
  EXPECT_EQ(processus.exitCode(), 0) << processus.readAllStandardError().constData();
  return processus.readAllStandardOutput();
}

Feuilles LireFeuilles(const QString &pdf) {
  Feuilles lues;
  QXmlStreamReader xml(Executer(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s}));
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    const QXmlStreamAttributes attributs = xml.attributes();
    const auto longueur = [&](const QString &nom) {
      return attributs.value(nom).toDouble() * kPoint.valeur;
    };
    if (xml.name() == u"page"_s) {
      ++lues.nombre;
      lues.largeur = longueur(u"width"_s);
      lues.hauteur = longueur(u"height"_s);
    } else if (xml.name() == u"word"_s) {
      const Cadre cadre{longueur(u"xMin"_s), longueur(u"yMin"_s), longueur(u"xMax"_s),
                        longueur(u"yMax"_s)};
      lues.mots.insert(xml.readElementText(), cadre);
    }
  }
  return lues;
}

/// The documents that the printer has got whole.
QStringList Arrives() {
  const QDir dossier(qEnvironmentVariable("VELMIRA_RECU"));
  QStringList chemins;
  for (const QFileInfo &fichier : dossier.entryInfoList({u"*.pdf"_s}, QDir::Files)) {
    QFile document(fichier.filePath());
    if (document.open(QIODevice::ReadOnly) && document.readAll().trimmed().endsWith("%%EOF"))
      chemins << fichier.filePath();
  }
  return chemins;
}

const FinImpression kImprimee{FinImpression::Issue::Imprimee};
/// A printer whose every document fails on its way.
constexpr char kPpdEnPanne[] = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "PANNE.PPD"
*Product: "(Panne)"
*Manufacturer: "Essai"
*ModelName: "Panne"
*ShortNickName: "Panne"
*NickName: "Panne"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*FileSystem: False
*cupsFilter2: "application/pdf application/pdf 0 /bin/false"
*OpenUI *PageSize: PickOne
*DefaultPageSize: A4
*PageSize A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion: PickOne
*DefaultPageRegion: A4
*PageRegion A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4: "10 10 585 832"
*DefaultPaperDimension: A4
*PaperDimension A4: "595 842"
)ppd";

const Police kPolice{u"Liberation Sans"_s, 10, false, false};

class Cups : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_FALSE(nom_.isEmpty()) << "to be started by avec_cups.sh";
    ASSERT_TRUE(QFontDatabase::hasFamily(kPolice.nom));
    plomex_.Orientation = OrientationFeuille::Portrait;
    plomex_.BordImprime = BordImprime::Gauche;
    plomex_.PositionEnveloppe = PositionEnveloppe::Haut;
    plomex_.PoliceA = plomex_.PoliceE = kPolice.nom;
    plomex_.TailleA = 10;
    plomex_.TailleE = 8;
    connus_ = Arrives();
  }

  FinImpression Imprimer(const QString &appareil, const ContenuEnveloppe &contenu) {
    return *ImprimerPlis(imprimante_, appareil, plomex_, {{etat_, contenu}});
  }

  /// Prints and waits for the sheet: the one document that the printer gets.
  Feuilles Sortir(const ContenuEnveloppe &contenu) {
    EXPECT_EQ(Imprimer(nom_, contenu), kImprimee);
    QStringList nouveaux;
    const QDeadlineTimer fin(kPatience);
    for (;;) {
      nouveaux = Arrives();
      nouveaux.removeIf([&](const QString &chemin) { return connus_.contains(chemin); });
      if (!nouveaux.isEmpty() || fin.hasExpired()) break;
      QThread::msleep(20);
    }
    connus_ << nouveaux;
    EXPECT_EQ(nouveaux.size(), 1);
    return nouveaux.isEmpty() ? Feuilles() : LireFeuilles(nouveaux.first());
  }

  const QString nom_ = qEnvironmentVariable("VELMIRA_IMPRIMANTE");
  HorlogeFixe horloge_;
  ImprimanteSysteme imprimante_{horloge_};
  ReglagesPlomex plomex_;
  EtatEnveloppe etat_;
  QStringList connus_;
};

// Places near the corner show the margins; places at the far end show that nothing was scaled to
// the printable area; the second line and the second word show which way the page lies.
TEST_F(Cups, PlacesSurLaFeuille) {
  const struct {
    const char *nom;
    quint8 orientation;
    qint16 margeX, margeY;
    double gauche, haut;  // of the printable area
  } cas[] = {
      {"portrait", 1, 0, 0, kMargeGauche, kMargeHaut},
      {"portrait, far end", 1, 60, 200, kMargeGauche, kMargeHaut},
      {"landscape", 2, 0, 0, kMargeHaut, kMargeDroite},
      {"landscape, far end", 2, 150, 120, kMargeHaut, kMargeDroite},
  };
  etat_.Commentaire = u"Recommandé"_s;
  plomex_.AlignE = Alignement::Droite;
  // Given up: nothing of it arrives.
  auto mesure = imprimante_.Ouvrir(nom_, {.nom = u"Mesure"_s});
  ASSERT_NE(mesure, nullptr);
  mesure->Ecrire({}, {}, kPolice, u"Perdu"_s);
  const Millimetres largeur = mesure->Largeur(u"Destinataire"_s, kPolice);
  const Millimetres interligne = mesure->HauteurLigne(kPolice);
  mesure.reset();
  for (const auto &c : cas) {
    SCOPED_TRACE(c.nom);
    plomex_.Orientation = static_cast<OrientationFeuille>(c.orientation);
    plomex_.MargeMAX = Millimetres(c.margeX);
    plomex_.MargeMAY = Millimetres(c.margeY);
    const Feuilles feuilles =
        Sortir({u"Expéditrice\nCourt"_s, u"Destinataire ici\nNANTES"_s, true});
    EXPECT_EQ(feuilles.nombre, 1);
    EXPECT_NEAR(feuilles.largeur, kLargeurFeuille, kTolerance);
    EXPECT_NEAR(feuilles.hauteur, kHauteurFeuille, kTolerance);
    const auto mot = [&](const QString &texte) {
      return SurLaPage(feuilles.mots.value(texte), c.orientation == 1);
    };

    const double x = c.gauche + 80 + c.margeX, y = c.haut + 50 + c.margeY;
    const Cadre premier = mot(u"Destinataire"_s);
    EXPECT_NEAR(premier.gauche, x, kTolerance);
    EXPECT_NEAR(premier.haut, y, kTolerance);
    EXPECT_NEAR(premier.droite, x + largeur.valeur, kTolerance);
    EXPECT_GT(mot(u"ici"_s).gauche, premier.droite);
    const Cadre ville = mot(u"NANTES"_s);
    EXPECT_NEAR(ville.gauche, x, kTolerance);
    EXPECT_NEAR(ville.haut, y + interligne.valeur, kTolerance);

    const Cadre expediteur = mot(u"Expéditrice"_s);
    EXPECT_NEAR(expediteur.gauche, c.gauche + 2, kTolerance);
    EXPECT_NEAR(expediteur.haut, c.haut + 5, kTolerance);
    EXPECT_NEAR(mot(u"Court"_s).droite, expediteur.droite, kTolerance);
    const Cadre commentaire = mot(u"Recommandé"_s);
    EXPECT_NEAR(commentaire.droite, c.gauche + 180, kTolerance);
    EXPECT_NEAR(commentaire.haut, c.haut + 5, kTolerance);
  }
}

TEST_F(Cups, ImprimantesDuServeur) {
  EXPECT_EQ(imprimante_.Noms(), QStringList({nom_, Imprimante::NomPdf()}));
  EXPECT_EQ(imprimante_.ParDefaut(), nom_);
}

// What a queue does not take is told, and nothing of it stays there to be printed later.
TEST_F(Cups, FileQuiRefuse) {
  const struct {
    const char *commande;
    const char16_t *raison;
    const char *retour;
  } cas[] = {
      {"cupsreject", u"n'accepte plus", "cupsaccept"},
      {"cupsdisable", u"arrêtée", "cupsenable"},
  };
  // A queue that is stopped over a page prints it once more.
  const auto vide = [] { return Executer(u"lpstat"_s, {u"-o"_s}).isEmpty(); };
  for (const QDeadlineTimer limite(kPatience); !vide() && !limite.hasExpired();)
    QThread::msleep(20);
  for (const auto &c : cas) {
    SCOPED_TRACE(c.commande);
    Executer(QString::fromLatin1(c.commande), {nom_});
    const FinImpression fin = Imprimer(nom_, {{}, u"Perdu"_s});
    EXPECT_EQ(fin.issue, FinImpression::Issue::Echouee);
    EXPECT_TRUE(fin.raison.contains(QString::fromUtf16(c.raison))) << qPrintable(fin.raison);
    Executer(QString::fromLatin1(c.retour), {nom_});
  }
  // One whose filter fails.
  const QTemporaryDir dossier;
  const QString description = dossier.filePath(u"panne.ppd"_s);
  QFile ppd(description);
  ASSERT_TRUE(ppd.open(QIODevice::WriteOnly));
  ppd.write(kPpdEnPanne);
  ppd.close();
  const QString panne = u"Panne"_s;
  Executer(u"lpadmin"_s,
           {u"-p"_s, panne, u"-E"_s, u"-v"_s, u"file:///dev/null"_s, u"-P"_s, description});
  const FinImpression fin = Imprimer(panne, {{}, u"Perdu"_s});
  EXPECT_EQ(fin.issue, FinImpression::Issue::Echouee);
  EXPECT_TRUE(fin.raison.contains(u"abandonné"_s)) << qPrintable(fin.raison);
  EXPECT_TRUE(vide());
  EXPECT_EQ(Arrives(), connus_);
}

// A printer removed under an open page, or before one opens, is told, and at once. Nothing is
// printed afterwards: now and then the server ends when it has lost a queue.
TEST_F(Cups, ImprimanteRetiree) {
  const QString retiree = u"Retiree"_s;
  Executer(u"lpadmin"_s, {u"-p"_s, retiree, u"-E"_s, u"-v"_s, qEnvironmentVariable("VELMIRA_URI"),
                          u"-m"_s, u"everywhere"_s});
  EXPECT_TRUE(imprimante_.Noms().contains(retiree));
  const auto ouvert = imprimante_.Ouvrir(retiree, {.nom = u"Enveloppe"_s});
  ASSERT_NE(ouvert, nullptr);
  ouvert->Ecrire({}, {}, kPolice, u"Perdu"_s);
  Executer(u"lpadmin"_s, {u"-x"_s, retiree});
  QElapsedTimer duree;
  duree.start();
  EXPECT_EQ(ouvert->Terminer().issue, FinImpression::Issue::Echouee);
  EXPECT_THROW(Imprimer(retiree, {{}, u"Perdu"_s}), Erreur);
  EXPECT_LT(duree.elapsed(), kImmediat);
}

// Started with CUPS_SERVER naming a port where nobody listens.
TEST(SansServeur, ResteLePdf) {
  ASSERT_FALSE(qEnvironmentVariableIsEmpty("CUPS_SERVER"));
  const QTemporaryDir dossier;
  HorlogeFixe horloge;
  ImprimanteSysteme imprimante(horloge, dossier.path());
  QElapsedTimer duree;
  duree.start();
  EXPECT_EQ(imprimante.Noms(), QStringList(Imprimante::NomPdf()));
  EXPECT_EQ(imprimante.ParDefaut(), Imprimante::NomPdf());
  EXPECT_THROW(imprimante.Ouvrir(u"Enveloppes"_s, {.nom = u"Enveloppe"_s}), Erreur);
  EXPECT_LT(duree.elapsed(), kImmediat);

  const auto pdf = imprimante.Ouvrir(Imprimante::NomPdf(), {.nom = u"Enveloppe"_s});
  EXPECT_TRUE(QFile::exists(pdf->Terminer().fichier));
}

// A server that takes connections and never says a word: whoever waits for it is told so after a
// few seconds, the windows go on meanwhile, and the end of the program does not wait.
TEST(SansServeur, Muet) {
  const int ecoute = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in adresse{};
  adresse.sin_family = AF_INET;
  adresse.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t taille = sizeof adresse;
  ASSERT_EQ(bind(ecoute, reinterpret_cast<sockaddr *>(&adresse), taille), 0);
  ASSERT_EQ(listen(ecoute, 16), 0);
  ASSERT_EQ(getsockname(ecoute, reinterpret_cast<sockaddr *>(&adresse), &taille), 0);
  const QByteArray avant = qgetenv("CUPS_SERVER");
  qputenv("CUPS_SERVER", "127.0.0.1:" + QByteArray::number(ntohs(adresse.sin_port)));

  HorlogeFixe horloge;
  QElapsedTimer duree;
  duree.start();
  {
    ImprimanteSysteme imprimante(horloge);
    // The library reads the address once in each thread.
    const auto muette = [](auto appel) {
      return std::async(std::launch::async, [appel] { EXPECT_THROW(appel(), Erreur); });
    };
    const auto noms = muette([&] { imprimante.Noms(); });
    const auto defaut = muette([&] { imprimante.ParDefaut(); });
    const auto page = muette([&] { imprimante.Ouvrir(u"HP"_s, {.nom = u"Enveloppe"_s}); });
    QEventLoop boucle;
    QObject fenetre;
    int battements = 0;
    std::optional<bool> reponse;
    QTimer battement;
    QObject::connect(&battement, &QTimer::timeout, [&] { ++battements; });
    battement.start(20);
    imprimante.Demander(&fenetre, [&](bool repondu) {
      reponse = repondu;
      boucle.quit();
    });
    EXPECT_LT(duree.elapsed(), kPeu);
    EXPECT_EQ(imprimante.NomsConnus(), QStringList(Imprimante::NomPdf()));
    boucle.exec();
    EXPECT_EQ(reponse, false);
    EXPECT_GT(battements, 50);
  }
  EXPECT_LT(duree.restart(), 2 * kImmediat);

  {
    ImprimanteSysteme imprimante(horloge);
    imprimante.Demander(QCoreApplication::instance(), [](bool) { ADD_FAILURE(); });
  }
  EXPECT_LT(duree.elapsed(), kPeu);
  qputenv("CUPS_SERVER", avant);
  close(ecoute);
}

}  // namespace

int main(int argc, char *argv[]) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QGuiApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
