// Files, code page, records, sections, typed texts.

#include "Outils.h"
#include "commun/PanneDeDossier.h"
#include "platform/Enregistrement.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "platform/Saisie.h"
#include "platform/Sections.h"

using namespace Qt::StringLiterals;

namespace {

class FichiersTest : public DansUnDossier {};

QByteArray TousLesOctets() {
  QByteArray tous;
  for (int i = 0; i < 256; ++i) tous += static_cast<char>(i);
  return tous;
}

}  // namespace

TEST(PageDeCode, RendLes256Octets) {
  const QString texte = DepuisPageDeCode(TousLesOctets());
  EXPECT_EQ(texte.size(), 256);
  EXPECT_EQ(VersPageDeCode(texte), TousLesOctets());
  EXPECT_EQ(DepuisPageDeCode("\x80\x9C\xE9"), u"€œé"_s);
  for (int i = 0; i < 256; ++i) {  // also one by one: no byte leans on its neighbour
    const QByteArray un(1, static_cast<char>(i));
    EXPECT_EQ(VersPageDeCode(DepuisPageDeCode(un)), un) << i;
  }
}

TEST(PageDeCode, CaractereAbsent) {
  const std::pair<QString, QByteArray> cas[] = {{u"東京"_s, "??"},
                                                {u"a😀b"_s, "a?b"},
                                                {u"été → œuf"_s, "\xE9t\xE9 ? \x9Cuf"},
                                                {u"\u001A"_s, "\x1A"},
                                                {u"\u001A→\u001A"_s, "\x1A?\x1A"},
                                                {u""_s, ""},
                                                // halves of pairs
                                                {QChar(0xD83D) + u"x"_s, "?x"},
                                                {u"x"_s + QChar(0xD83D), "x?"},
                                                {u"x"_s + QChar(0xDE00), "x?"}};
  for (const auto &[texte, octets] : cas) EXPECT_EQ(VersPageDeCode(texte), octets);
}

TEST(Enregistrement, Valeurs) {
  const std::pair<QByteArray, QString> cas[] = {// a bar behind each value
                                                {"", u""_s},
                                                {"\"C:\\Users\\Paul\"\r\n", u"C:\\Users\\Paul|"_s},
                                                {"1,\"a, b\",-3\r\n", u"1|a, b|-3|"_s},
                                                {"\" - \",\"\"\r\n", u" - ||"_s},
                                                {"1\r\n2\n3", u"1|2|3|"_s},
                                                {" 7 , 8 ", u"7|8|"_s},
                                                {",5", u"|5|"_s},
                                                {"\"jamais ferm\xE9", u"jamais fermé|"_s}};
  for (const auto &[octets, attendues] : cas) {
    LecteurEnregistrement lecteur(octets);
    QString lues;
    while (const auto valeur = lecteur.Suivant()) lues += *valeur + u'|';
    EXPECT_EQ(lues, attendues);
  }
}

TEST(Enregistrement, ValeurIllisibleLaisseLAncienne) {
  LecteurEnregistrement lecteur("256,-1,x,40000,\"12\",,9,\"nom\"");
  std::tuple<quint8, quint8, quint8, qint16, qint16, qint16, qint16, QString, QString> valeurs{
      1, 2, 3, 4, 5, 6, 7, u"ancien"_s, u"reste"_s};
  std::apply([&](auto &...valeur) { (lecteur.Lire(valeur), ...); }, valeurs);
  EXPECT_EQ(valeurs, (decltype(valeurs){1, 2, 3, 4, 12, 6, 9, u"nom"_s, u"reste"_s}));
}

TEST(SectionsTest, Lecture) {
  const Sections s(
      "orphelin=0\r\n[Autre]\r\nTailleA=1\r\n\r\n[DEFAUT]\r\n;TailleA=2\r\nsans signe\r\n"
      "  taillea = 12 \r\nTailleA=3\r\nBord imprim\xE9=2\r\nVide=\r\nCite=\" x=y \"\r\n"
      "Simple='a'\r\nUne=\"\r\n=9\r\n[Suite]\r\nLoin=1\r\n[Defaut]\r\nLoin=2\r\n");
  const std::pair<const char16_t *, const char16_t *> cas[] = {
      {u"TailleA", u"12"}, {u"Bord imprimé", u"2"}, {u"BORD IMPRIMÉ", u"2"},
      {u"Vide", u""},      {u"Cite", u" x=y "},     {u"Simple", u"a"},
      {u"Une", u"\""},     {u"orphelin", u""},      {u"Loin", u""},
      {u"", u""},          {u"sans signe", u""}};
  for (const auto &[cle, valeur] : cas)
    EXPECT_EQ(s.LireCle(u"Defaut"_s, QString::fromUtf16(cle), 30), QString::fromUtf16(valeur));
  EXPECT_EQ(s.LireCle(u"Absente"_s, u"TailleA"_s, 30), u""_s);
  EXPECT_EQ(s.LireCle(u"Autre"_s, u"TailleA"_s, 1), u""_s);
}

TEST(SectionsTest, FinsDeLigneMelees) {
  const Sections s("[Autre]\nx=1\n[Defaut]\nTailleA=12\r\nTailleE=9\n");
  EXPECT_EQ(s.LireCle(u"Defaut"_s, u"TailleA"_s, 30), u"12"_s);
  EXPECT_EQ(s.LireCle(u"Defaut"_s, u"TailleE"_s, 30), u"9"_s);
}

TEST(SectionsTest, EcritureGardeLeReste) {
  const std::tuple<QByteArray, QString, QByteArray> cas[] = {
      {"", u"B"_s, "[S]\r\nB=9\r\n"},
      {"[S]\r\nA=1\r\n  b  =2\r\n", u"B"_s, "[S]\r\nA=1\r\n  b  =9\r\n"},
      {"; tete\r\n\r\n[S]\r\nA = 1\r\ninconnu\r\n\r\n[T]\r\nB=2\r\n", u"B"_s,
       "; tete\r\n\r\n[S]\r\nA = 1\r\ninconnu\r\nB=9\r\n\r\n[T]\r\nB=2\r\n"},
      {"[T]\r\nB=2", u"B"_s, "[T]\r\nB=2\r\n[S]\r\nB=9\r\n"},
      {"[S]\nB=2\n# fin\n", u"B"_s, "[S]\nB=9\n# fin\n"},
      {"[S]\r\n[T]\r\n", u"B"_s, "[S]\r\nB=9\r\n[T]\r\n"},
      {"[s]\r\nPosition \xE9t\xE9=1\r\n", u"POSITION ÉTÉ"_s, "[s]\r\nPosition \xE9t\xE9=9\r\n"},
      {"[S]\r\nB=2\nC=1\r\nD\n", u"B"_s, "[S]\r\nB=9\nC=1\r\nD\n"},
      {"[S]\r\n;B=1\r\n", u"B"_s, "[S]\r\n;B=1\r\nB=9\r\n"},
  };
  for (const auto &[avant, cle, apres] : cas) {
    Sections s(avant);
    s.EcrireCle(u"S"_s, cle, u"9"_s);
    EXPECT_EQ(s.Octets(), apres);
  }
}

TEST(Saisie, Dates) {
  const std::pair<const char16_t *, const char16_t *> dates[] = {{u"31/12/29", u"2029-12-31"},
                                                                 {u"1/1/30", u"1930-01-01"},
                                                                 {u"01.02.00", u"2000-02-01"},
                                                                 {u"3-4-1850", u"1850-04-03"},
                                                                 {u"29/02/2024", u"2024-02-29"}};
  for (const auto &[texte, iso] : dates)
    EXPECT_EQ(DateSaisie(QString::fromUtf16(texte)).toString(Qt::ISODate), QString::fromUtf16(iso));
  for (const auto *texte : {u"", u"29/02/2023", u"31/04/2020", u"0/1/2020", u"1/13/2020", u"1/2",
                            u"1/2/3", u"1/2/203", u"1/2/02020", u"1 2 2020", u"1//2/2020",
                            u"1/-2/2020", u"1/2/2020x", u"le 1/2/2020", u"2020/1/2"})
    EXPECT_FALSE(DateSaisie(QString::fromUtf16(texte)).isValid())
        << QString::fromUtf16(texte).toStdString();
}

TEST(Saisie, Nombres) {
  const std::pair<const char16_t *, double> cas[] = {{u"110", 110},
                                                     {u"110 mm", 110},
                                                     {u"110,5", 110.5},
                                                     {u" 110.25x", 110.25},
                                                     {u"-3,5", -3.5},
                                                     {u"+4", 4},
                                                     {u",5", 0.5},
                                                     {u"5,", 5},
                                                     {u"12,5,3", 12.5},
                                                     {u"mm 110", 0},
                                                     {u",", 0},
                                                     {u"-", 0},
                                                     {u"", 0},
                                                     {u"nan", 0},
                                                     {u"inf", 0},
                                                     {u"-1 000,5", -1000.5},
                                                     {u"12\u00A0345\u202F678", 12345678},
                                                     {u"1 0000", 1},
                                                     {u"60 ms", 60}};
  for (const auto &[texte, nombre] : cas)
    EXPECT_EQ(NombreSaisi(QString::fromUtf16(texte)), nombre)
        << QString::fromUtf16(texte).toStdString();
}

TEST_F(FichiersTest, RemplacementToutOuRien) {
  const QByteArray ancien(5000, 'a'), nouveau(9000, 'b');
  Poser(u"f"_s, ancien);
  {
    const DisquePlein plein(100);
    EXPECT_THROW(RemplacerFichier(Chemin(u"f"_s), nouveau), ErreurFichier);
    EXPECT_THROW(RemplacerFichier(Chemin(u"neuf"_s), nouveau), ErreurFichier);
  }
  EXPECT_EQ(Octets(u"f"_s), ancien);
  EXPECT_EQ(Contenu(), QStringList{u"f"_s}) << "nothing half-written stays";
  for (const QByteArray &contenu : {nouveau, QByteArray("")}) {
    RemplacerFichier(Chemin(u"f"_s), contenu);
    EXPECT_EQ(LireFichier(Chemin(u"f"_s)), contenu);
  }
  EXPECT_EQ(Contenu(), QStringList{u"f"_s});
  EXPECT_THROW(RemplacerFichier(Chemin(), nouveau), ErreurFichier) << "a folder";
  EXPECT_THROW(RemplacerFichier(Chemin(u"f/g"_s), nouveau), ErreurFichier) << "below a file";
}

TEST_F(FichiersTest, RenommerEffacerCreer) {
  Poser(u"a"_s, "a");
  Poser(u"b"_s, "b");
  EXPECT_THROW(RenommerFichier(Chemin(u"a"_s), Chemin(u"b"_s)), ErreurFichier);
  EXPECT_EQ(Octets(u"a"_s) + Octets(u"b"_s), QByteArray("ab"));
  RenommerFichier(Chemin(u"a"_s), Chemin(u"c"_s));
  EffacerFichier(Chemin(u"b"_s));
  EXPECT_EQ(Contenu(), QStringList{u"c"_s});
  EXPECT_THROW(EffacerFichier(Chemin(u"b"_s)), ErreurFichier);
  EXPECT_THROW(CreerDossier(Chemin(u"c/d"_s)), ErreurFichier);
  CreerDossier(Chemin(u"x/y"_s));
  EXPECT_NO_THROW(CreerDossier(Chemin(u"x/y"_s)));
  CreerDossier(Chemin(u"x/moi/seul"_s), Acces::Prive);
  const auto groupe = QFile::ReadGroup | QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther;
  for (const QString &nom : {u"x/moi"_s, u"x/moi/seul"_s})
    EXPECT_FALSE(QFile::permissions(Chemin(nom)) & groupe) << nom.toStdString();
  EXPECT_TRUE(QFile::permissions(Chemin(u"x"_s)) & groupe);
}

TEST_F(FichiersTest, NouveauxNoms) {
  EXPECT_TRUE(CreerFichier(Chemin(u"f"_s), "un"));
  EXPECT_FALSE(CreerFichier(Chemin(u"f"_s), "deux"));
  {
    const DisquePlein plein(100);
    EXPECT_THROW(CreerFichier(Chemin(u"g"_s), QByteArray(9000, 'b')), ErreurFichier);
  }
  EXPECT_EQ(Octets(u"f"_s), QByteArray("un"));
  EXPECT_EQ(Contenu(), QStringList{u"f"_s});

  // A link is followed, and permissions stay.
  QFile::setPermissions(Chemin(u"f"_s), QFile::ReadOwner | QFile::WriteOwner);
  ASSERT_TRUE(QFile::link(Chemin(u"f"_s), Chemin(u"lien"_s)));
  RemplacerFichier(Chemin(u"lien"_s), "trois");
  EXPECT_TRUE(QFileInfo(Chemin(u"lien"_s)).isSymLink());
  EXPECT_EQ(Octets(u"f"_s), QByteArray("trois"));
  EXPECT_FALSE(QFile::permissions(Chemin(u"f"_s)) & QFile::ReadOther);
}

TEST_F(FichiersTest, VersUnAutreDisque) {
  const QTemporaryDir ailleurs(u"/dev/shm/velmira-XXXXXX"_s);
  Poser(u"a"_s, "a");
  const QString loin = ailleurs.filePath(u"a"_s);
  RenommerFichier(Chemin(u"a"_s), loin);
  EXPECT_EQ(LireFichier(loin), QByteArray("a"));
  EXPECT_EQ(Contenu(), QStringList());
  Poser(u"a"_s, "b");
  EXPECT_THROW(RenommerFichier(Chemin(u"a"_s), loin), ErreurFichier);
  EXPECT_EQ(LireFichier(loin), QByteArray("a"));
  EXPECT_EQ(Octets(u"a"_s), QByteArray("b"));
}

TEST_F(FichiersTest, DossierQuiNeVaPasSurLeDisque) {
  Poser(u"f"_s, "ancien");
  {
    const PanneDeDossier panne(EIO);
    EXPECT_THROW(RemplacerFichier(Chemin(u"f"_s), "nouveau"), ErreurFichier);
    EXPECT_THROW(CreerDossier(Chemin(u"d"_s)), ErreurFichier);
    EXPECT_THROW(EffacerFichier(Chemin(u"f"_s)), ErreurFichier);
  }
  const PanneDeDossier sans(EINVAL);  // a file system that knows no such thing
  EXPECT_NO_THROW(RemplacerFichier(Chemin(u"f"_s), "nouveau"));
  EXPECT_EQ(Contenu(), (QStringList{u"d"_s, u"f"_s}));
}
