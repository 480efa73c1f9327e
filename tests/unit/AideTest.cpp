// The guide: what the windows ask for is there, and no link of it leads nowhere.

#include "Outils.h"
#include "help/Aide.h"
#include "platform/Coquille.h"
#include "platform/Erreurs.h"

#include <QHash>
#include <QRegularExpression>
#include <QSet>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString kGuide = QStringLiteral(VELMIRA_DATA "/../docs/guide/");

QStringList Captures(const QString &texte, const QString &motif) {
  QStringList captures;
  auto trouvees = QRegularExpression(motif).globalMatch(texte);
  while (trouvees.hasNext()) captures.append(trouvees.next().captured(1));
  return captures;
}

/// The pages by their names.
QHash<QString, QString> Pages() {
  QHash<QString, QString> pages;
  for (const QString &nom : QDir(kGuide).entryList({u"*.html"_s})) {
    QFile fichier(kGuide + nom);
    if (fichier.open(QIODevice::ReadOnly)) pages.insert(nom, QString::fromUtf8(fichier.readAll()));
  }
  return pages;
}

/// Whether a page of the guide, with its anchor, is there; `page` for what names only an anchor.
bool Mene(const QHash<QString, QString> &pages, const QString &adresse, const QString &page = {}) {
  const QString fichier = adresse.section(u'#', 0, 0), ancre = adresse.section(u'#', 1);
  const auto cible = pages.constFind(fichier.isEmpty() ? page : fichier);
  return cible != pages.cend() &&
         (ancre.isEmpty() || Captures(*cible, u"\\sid=\"([^\"]*)\""_s).contains(ancre));
}

class CoquilleNotee : public Coquille {
 public:
  bool Lancer(const QString &) override { return false; }
  bool PeutLancer(const QString &) const override { return false; }
  void RelancerProgramme() override {}
  void ReglerSon() override {}
  bool LienExiste(const QString &) const override { return false; }
  void CreerLien(const QString &, const QString &) override {}
  QString ouvert;

 protected:
  bool OuvrirSurLeBureau(const QString &document) override {
    ouvert = document;
    return !document.contains(u"alertes"_s);
  }
};

class AideTest : public DansUnDossier {};

}  // namespace

TEST(GuideTest, PagesDesFenetres) {
  const auto pages = Pages();
  // Every window that the sources name has its page, and every page its place in the guide.
  QSet<QString> fenetres;
  const QString sources = QStringLiteral(VELMIRA_DATA "/../src/");
  for (const QString &dossier : QDir(sources).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
    for (const QString &nom : QDir(sources + dossier).entryList({u"Frm*.cpp"_s}))
      fenetres.insert(nom.chopped(4));
  EXPECT_GT(fenetres.size(), 15);
  for (const QString &fenetre : std::as_const(fenetres))
    EXPECT_TRUE(Mene(pages, PageAide(fenetre))) << qPrintable(fenetre);
  EXPECT_TRUE(Mene(pages, SommaireAide()));
  EXPECT_EQ(PageAide(u"qt_msgbox"_s), u""_s);
}

TEST(GuideTest, LiensEtImages) {
  const auto pages = Pages();
  for (auto page = pages.cbegin(); page != pages.cend(); ++page) {
    for (const QString &lien : Captures(*page, u"href=\"([^\"]*)\""_s))
      EXPECT_TRUE(lien == u"guide.css" || Mene(pages, lien, page.key()))
          << qPrintable(page.key()) << ": " << qPrintable(lien);
    for (const QString &image : Captures(*page, u"src=\"([^\"]*)\""_s))
      EXPECT_TRUE(QFile::exists(kGuide + image))
          << qPrintable(page.key()) << ": " << qPrintable(image) << ", see script/captures";
    const QStringList ancres = Captures(*page, u"\\sid=\"([^\"]*)\""_s);
    EXPECT_EQ(QSet<QString>(ancres.begin(), ancres.end()).size(), ancres.size())
        << qPrintable(page.key());
  }
}

TEST_F(AideTest, PageOuverte) {
  const QString dossier = u"à 100% #1"_s;  // signs that mean something in an address
  ASSERT_TRUE(QDir().mkpath(Chemin(dossier + u"/guide"_s)));
  Poser(dossier + u"/guide/enveloppes.html"_s, "");
  CoquilleNotee coquille;
  OuvrirAide(coquille, Chemin(dossier), u"enveloppes.html#carnet"_s);
  const QUrl adresse(coquille.ouvert);
  EXPECT_EQ(adresse.toLocalFile(), Chemin(dossier + u"/guide/enveloppes.html"_s));
  EXPECT_EQ(adresse.fragment(), u"carnet"_s);
  OuvrirAide(coquille, Chemin(dossier), u"enveloppes.html"_s);
  EXPECT_FALSE(QUrl(coquille.ouvert).hasFragment());
  coquille.ouvert.clear();
  EXPECT_THROW(OuvrirAide(coquille, Chemin(dossier), u"alertes.html"_s), ErreurFichier);
  EXPECT_TRUE(coquille.ouvert.isEmpty());
  // One that is there and that nothing opens is told with its place.
  Poser(dossier + u"/guide/alertes.html"_s, "");
  try {
    OuvrirAide(coquille, Chemin(dossier), u"alertes.html#liste"_s);
    ADD_FAILURE() << "opened";
  } catch (const ErreurFichier &erreur) {
    EXPECT_EQ(erreur.Texte(),
              u"Le document « %1 » n'a pas pu être ouvert : aucun programme du bureau ne l'a "
              "accepté.\nIl est intact à cet endroit. Installez un programme qui ouvre ce genre de "
              "document, ou choisissez-le dans les réglages du bureau, puis recommencez."_s.arg(
                  Chemin(dossier + u"/guide/alertes.html"_s)));
  }
}
