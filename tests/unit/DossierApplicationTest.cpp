// The application folder and the places that data may have.

#include "Outils.h"
#include "app/Demarrage.h"
#include "commun/BoitesMuettes.h"
#include "platform/Erreurs.h"
#include "storage/Base.h"
#include "storage/DossierApplication.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Schema.h"

using namespace Qt::StringLiterals;

namespace {

class DossierApplicationTest : public DansUnDossier {
 protected:
  void SetUp() override {
    for (const QString &nom : {u"bin"_s, u"installe"_s}) ASSERT_TRUE(QDir().mkdir(Chemin(nom)));
    Poser(u"installe/Civilite.txt"_s, "M.  \r\n");
    Poser(u"installe/Saints.txt"_s, "saints");
    Installer(1);
  }

  /// Lays the empty base of a schema version among the installed files.
  void Installer(int version) const {
    const QString base = u"installe/Velmira_base.mdb"_s;
    QFile::remove(Chemin(base));
    CreerBaseVide(Chemin(base));
    QByteArray octets = Octets(base);
    octets[63] = static_cast<char>(version);  // "user version" of the header, big-endian
    Poser(base, octets);
  }

  QString Trouver() const {
    return TrouverAppPath(Chemin(u"bin"_s), Chemin(u"installe"_s), Chemin(u"home/Velmira"_s));
  }
  bool BasePosee() const { return Existe(u"home/Velmira/Velmira_base.mdb"_s); }
  /// What a start does with the base that was laid.
  void Consommer() const { QFile::remove(Chemin(u"home/Velmira/Velmira_base.mdb"_s)); }
};

}  // namespace

TEST_F(DossierApplicationTest, Portable) {
  Poser(u"bin/Velmira.portable"_s, "");
  EXPECT_EQ(Trouver(), Chemin(u"bin"_s));
  EXPECT_FALSE(Existe(u"home"_s));
}

TEST_F(DossierApplicationTest, PremierRemplissage) {
  ASSERT_TRUE(QDir().mkpath(Chemin(u"home/Velmira"_s)));
  Poser(u"home/Velmira/Saints.txt"_s, "les miens");
  EXPECT_EQ(Trouver(), Chemin(u"home/Velmira"_s));
  EXPECT_EQ(Octets(u"home/Velmira/Civilite.txt"_s), QByteArray("M.  \r\n"));
  EXPECT_EQ(Octets(u"home/Velmira/Saints.txt"_s), QByteArray("les miens"));
  EXPECT_EQ(Octets(u"home/Velmira/Velmira_base.mdb"_s), Octets(u"installe/Velmira_base.mdb"_s));
}

TEST_F(DossierApplicationTest, NeRemplitQuUneFois) {
  Trouver();
  Poser(u"home/Velmira/Civilite.txt"_s, "Docteur\r\n");
  QFile::remove(Chemin(u"home/Velmira/Saints.txt"_s));
  Consommer();
  Poser(u"installe/Civilite.txt"_s, "autre");
  for (int i = 0; i < 2; ++i) {
    Trouver();
    EXPECT_EQ(Octets(u"home/Velmira/Civilite.txt"_s), QByteArray("Docteur\r\n"));
    EXPECT_FALSE(Existe(u"home/Velmira/Saints.txt"_s));
    EXPECT_FALSE(BasePosee());
  }
}

TEST_F(DossierApplicationTest, VersionDuSchema) {
  const struct {
    int installee;
    bool posee;
  } cas[] = {{1, true}, {1, false}, {3, true}, {3, false}, {2, false}, {3, false}, {4, true}};
  for (const auto &c : cas) {
    Installer(c.installee);
    Trouver();
    EXPECT_EQ(BasePosee(), c.posee) << c.installee;
    if (c.posee) Poser(u"home/Velmira/Civilite.txt"_s, "Docteur\r\n");
    EXPECT_EQ(Octets(u"home/Velmira/Civilite.txt"_s), QByteArray("Docteur\r\n"));
    Consommer();
  }
}

TEST_F(DossierApplicationTest, GuideDeChaqueEdition) {
  ASSERT_TRUE(QDir().mkpath(Chemin(u"installe/guide/images"_s)));
  const auto livrer = [this](const QByteArray &edition) {
    Poser(u"installe/guide/edition.txt"_s, edition);
    Poser(u"installe/guide/index.html"_s, "page " + edition);
    Poser(u"installe/guide/images/options.png"_s, "image " + edition);
  };
  const auto aJour = [this](const QByteArray &edition) {
    return Octets(u"home/Velmira/guide/edition.txt"_s) == edition &&
           Octets(u"home/Velmira/guide/index.html"_s) == "page " + edition &&
           Octets(u"home/Velmira/guide/images/options.png"_s) == "image " + edition;
  };
  livrer("1");
  Trouver();
  EXPECT_TRUE(aJour("1"));
  Poser(u"home/Velmira/guide/index.html"_s, "");
  Trouver();
  EXPECT_EQ(Octets(u"home/Velmira/guide/index.html"_s), QByteArray()) << "copied at each start";
  livrer("2");
  Trouver();
  EXPECT_TRUE(aJour("2"));
}

TEST_F(DossierApplicationTest, GuideQuiNeSeCopiePas) {
  ASSERT_TRUE(QDir().mkpath(Chemin(u"installe/guide"_s)));
  Poser(u"installe/guide/edition.txt"_s, "1");
  Poser(u"installe/guide/index.html"_s, "page");
  ASSERT_TRUE(QDir().mkpath(Chemin(u"home/Velmira"_s)));
  Poser(u"home/Velmira/guide"_s, "in the way");
  EXPECT_EQ(Trouver(), Chemin(u"home/Velmira"_s));
  EXPECT_TRUE(BasePosee());
  QFile::remove(Chemin(u"home/Velmira/guide"_s));
  Trouver();
  EXPECT_EQ(Octets(u"home/Velmira/guide/index.html"_s), QByteArray("page"));
}

TEST_F(DossierApplicationTest, SansFichiersInstalles) {
  QDir(Chemin(u"installe"_s)).removeRecursively();
  EXPECT_EQ(Trouver(), Chemin(u"home/Velmira"_s));
  EXPECT_FALSE(BasePosee());
  Poser(u"obstacle"_s, "");
  EXPECT_THROW(TrouverAppPath(Chemin(u"bin"_s), Chemin(u"installe"_s), Chemin(u"obstacle/v"_s)),
               ErreurFichier);
}

// The user's data are nobody else's; those on a share are for whom the share lets in.
TEST_F(DossierApplicationTest, DroitsDesDossiers) {
  const auto autres = QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
  BoitesMuettes boites;
  boites.dossier = Chemin();
  Dossiers dossiers;
  dossiers.AppPath = Chemin(u"bin"_s);
  ASSERT_TRUE(Demarrage(boites, dossiers, {[](const QString &) {}}).Executer());
  EXPECT_EQ(dossiers.CheminData, Chemin(u"DataTrevona/DataVelmira"_s));
  EXPECT_FALSE(QFile::permissions(dossiers.CheminData) & autres);
  EXPECT_TRUE(QFile::permissions(CreerDossierDeDonnees(Chemin())) & autres);
}

TEST(EmplacementDonneesTest, DossierRefuse) {
  const struct {
    const char16_t *chemin;
    bool refuse;
  } cas[] = {
      {u"C:\\Users\\Public\\Default\\", false},
      {u"D:\\Public\\Default\\", true},
      {u"D:\\Data\\", false},
      {u"/srv/public/", false},
      {u"/srv/Default/", false},
      {u"/srv/default-public/", true},
      {u"/Documents and Settings/public/default/", false},
      {u"/utilisateurs/public/default/", false},
      {u"", false},
  };
  for (const auto &c : cas)
    EXPECT_EQ(DossierRefuse(QString::fromUtf16(c.chemin)), c.refuse)
        << QString::fromUtf16(c.chemin).toStdString();
}
