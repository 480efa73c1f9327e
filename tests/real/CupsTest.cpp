// A real print server and the sheets that it makes, the documents that it refuses, and one that
// keeps silent.

#include "Reel.h"

#include <arpa/inet.h>
#include <future>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

/// Listens at a free port, at which the print server is looked for from now on.
int Ecouter() {
  const int ecoute = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in adresse{};
  adresse.sin_family = AF_INET;
  adresse.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t taille = sizeof adresse;
  EXPECT_EQ(bind(ecoute, reinterpret_cast<sockaddr *>(&adresse), taille), 0);
  EXPECT_EQ(listen(ecoute, 16), 0);
  EXPECT_EQ(getsockname(ecoute, reinterpret_cast<sockaddr *>(&adresse), &taille), 0);
  qputenv("CUPS_SERVER", "127.0.0.1:" + QByteArray::number(ntohs(adresse.sin_port)));
  return ecoute;
}

/// With the queue "Enveloppes", whose printer leaves each sheet in the file `recu`.
class Cups : public Papier {
 protected:
  Cups() {
    ::close(Ecouter());
    qputenv("PATH", qgetenv("PATH") + ":/usr/sbin");
    // Started by root, it runs its filters under another account, which must get there.
    EXPECT_TRUE(QFile(dossier_.path()).setPermissions(QFile::Permissions(0x7755)));
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
    while (!AjouterFile(u"Enveloppes"_s, "-", Chemin(u"recu"_s)) && !serveur_.waitForFinished(50)) {
    }
    Executer(u"lpadmin"_s, {u"-d"_s, u"Enveloppes"_s});
  }
  ~Cups() override {
    serveur_.terminate();
    serveur_.waitForFinished(-1);
  }

  QString Chemin(const QString &nom) const { return dossier_.filePath(nom); }
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

  Page Sortir() {
    EXPECT_EQ(Imprimer(u"Enveloppes"_s), FinImpression{FinImpression::Issue::Imprimee});
    Attendre(FileVide);
    return LirePages(Chemin(u"recu"_s)).value(0);
  }
  void VerifierRefus(const QString &appareil, const QString &raison) {
    const FinImpression fin = Imprimer(appareil);
    EXPECT_EQ(fin.issue, FinImpression::Issue::Echouee);
    EXPECT_TRUE(fin.raison.contains(raison)) << qPrintable(fin.raison);
    EXPECT_TRUE(FileVide()) << "it would be printed later";
  }

  QProcess serveur_;
};

TEST_F(Cups, FeuillesEtRefus) {
  EXPECT_TRUE(AjouterFile(pdf_, "-", u"/dev/null"_s)) << "not to be mistaken for the built-in one";
  EXPECT_EQ(imprimante_.Noms(), QStringList({u"Enveloppes"_s, pdf_}));
  EXPECT_EQ(imprimante_.ParDefaut(), u"Enveloppes"_s);
  imprimante_.Ouvrir(u"Enveloppes"_s, {.nom = u"Abandonné"_s})->NouvellePage();
  Executer(u"cupsreject"_s, {u"Enveloppes"_s});
  VerifierRefus(u"Enveloppes"_s, u"n'accepte plus"_s);
  Executer(u"cupsaccept"_s, {u"Enveloppes"_s});
  Executer(u"cupsdisable"_s, {u"Enveloppes"_s});
  VerifierRefus(u"Enveloppes"_s, u"arrêtée"_s);
  Executer(u"cupsenable"_s, {u"Enveloppes"_s});
  EXPECT_FALSE(QFile::exists(Chemin(u"recu"_s)));

  // The address lies at the far end: nothing is scaled to the printable area. A landscape page lies
  // on the upright sheet with its top at the sheet's right edge.
  plomex_.MargeMAX = Millimetres(20), plomex_.MargeMAY = Millimetres(130);
  Verifier(Sortir(), 210, 3 + 100, 5 + 180, 3 + 2, 5 + 5);
  plomex_.Orientation = OrientationFeuille::Paysage;
  plomex_.MargeMAX = Millimetres(100), plomex_.MargeMAY = Millimetres(80);
  Page page = Sortir();
  for (Mot &mot : page.mots)
    mot = {mot.texte, mot.haut, 210 - mot.droite, mot.bas, 210 - mot.gauche};
  Verifier(page, 210, 5 + 180, 7 + 130, 5 + 2, 7 + 5);

  // More than goes to the server at once.
  const auto longue = imprimante_.Ouvrir(u"Enveloppes"_s, {.nom = u"Longue"_s});
  for (int n = 0; n < 8'000; ++n)
    longue->Ecrire(Millimetres(n % 40 * 5), Millimetres(n / 40), {u"Liberation Sans"_s, 2},
                   QString::number(100'000 + n));
  EXPECT_EQ(longue->Terminer().issue, FinImpression::Issue::Imprimee);
  Attendre(FileVide);
  EXPECT_NEAR(LirePages(Chemin(u"recu"_s)).value(0)(u"107999"_s).haut, 5 + 199, kTolerance);

  EXPECT_TRUE(AjouterFile(u"Panne"_s, "/bin/false", u"/dev/null"_s));
  VerifierRefus(u"Panne"_s, u"abandonné"_s);
  const auto ouvert = imprimante_.Ouvrir(u"Panne"_s, {.nom = u"Enveloppe"_s});
  Executer(u"lpadmin"_s, {u"-x"_s, u"Panne"_s});  // last: now and then the server ends by that
  EXPECT_TRUE(ouvert->Terminer().raison.contains(u"ne l'a plus"_s));
  EXPECT_THROW(Imprimer(u"Panne"_s), Erreur);
}

using ServeurMuet = Papier;

// It takes connections and never says a word: whoever waits for it is told so, the windows go on
// meanwhile, and the end of the program does not wait.
TEST_F(ServeurMuet, EstDitSansRetenir) {
  const int ecoute = Ecouter();
  // The library reads the address once in each thread.
  const auto muette = [](auto appel) {
    return std::async(std::launch::async, [appel] { EXPECT_THROW(appel(), Erreur); });
  };
  const auto noms = muette([&] { imprimante_.Noms(); });
  const auto defaut = muette([&] { imprimante_.ParDefaut(); });
  const auto page = muette([&] { imprimante_.Ouvrir(u"HP"_s, {.nom = u"Enveloppe"_s}); });
  std::optional<bool> reponse;
  imprimante_.Demander(qApp, [&](bool repondu) { reponse = repondu; });
  {
    ImprimanteSysteme quittee(horloge_);
    quittee.Demander(qApp, [](bool) { ADD_FAILURE() << "nobody waits any more"; });
  }
  // Had either been waited for, the first answer would come with the first events.
  for (int i = 0; i < 50; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(reponse, std::nullopt);
  EXPECT_EQ(imprimante_.NomsConnus(), QStringList(pdf_));
  Attendre([&] { return reponse.has_value(); });
  EXPECT_EQ(reponse, false);
  ::close(ecoute);
}

}  // namespace
