// The printed list: what its lines say, where they stand, and how it ends.

#include "Outils.h"
#include "directory/ImpressionListe.h"
#include "platform/Erreurs.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kLargeurFeinte = 120, kHauteurFeinte = 100;

using Issue = FinImpression::Issue;
const FinImpression kImprimee{Issue::Imprimee}, kEchouee{Issue::Echouee};

/// What is written on its documents: pages 120 mm wide and 100 mm high; a line is as high as its
/// font in points, times 0.4, and a character half as wide.
class ImprimanteFeinte : public Imprimante {
 public:
  struct Ecrite {
    qsizetype page;
    double y;
    QString texte;
    Police police;
  };

  QStringList Noms() override { return {u"HP"_s, u"Canon"_s, NomPdf()}; }
  QString ParDefaut() override { return u"Canon"_s; }
  QStringList NomsConnus() const override { return {}; }
  void Demander(QObject *, std::function<void(bool)>) override {}
  std::unique_ptr<Document> Ouvrir(const QString &appareil,
                                   const DescriptionDocument &description) override;

  FinImpression fin{FinImpression::Issue::Imprimee};
  bool terminee = false;
  qsizetype pages = 0;
  std::vector<Ecrite> lignes;
};

class DocumentFeint : public Document {
 public:
  explicit DocumentFeint(ImprimanteFeinte &imprimante) : imprimante_(imprimante) {}

  Millimetres LargeurPage() const override { return Millimetres(kLargeurFeinte); }
  Millimetres HauteurPage() const override { return Millimetres(kHauteurFeinte); }
  void NouvellePage() override { ++imprimante_.pages; }
  void Ecrire(Millimetres x, Millimetres y, const Police &police, const QString &texte) override {
    EXPECT_EQ(x, Millimetres());
    imprimante_.lignes.push_back({imprimante_.pages, y.valeur, texte, police});
  }
  FinImpression Terminer() override {
    imprimante_.terminee = true;
    return imprimante_.fin;
  }
  Millimetres Largeur(const QString &texte, const Police &police) const override {
    return Millimetres(static_cast<double>(texte.size()) * police.points * 0.2);
  }
  Millimetres HauteurLigne(const Police &police) const override {
    return Millimetres(police.points * 0.4);
  }

 private:
  ImprimanteFeinte &imprimante_;
};

std::unique_ptr<Document> ImprimanteFeinte::Ouvrir(const QString &appareil,
                                                   const DescriptionDocument &description) {
  EXPECT_EQ(appareil, ParDefaut());
  EXPECT_EQ(description.nom, u"Liste"_s);
  EXPECT_EQ(description.orientation, Orientation::Portrait);
  pages = 1;
  return std::make_unique<DocumentFeint>(*this);
}

/// Each line behind a letter for its font: T of the title, N of a name, t of a text, p of the small
/// print; a line without text is "-".
QString Textes(const std::vector<LigneListe> &lignes) {
  QStringList textes;
  for (const auto &[texte, police] : lignes) {
    EXPECT_EQ(police.nom, u"Arial"_s);
    const QString marque = police == Police{u"Arial"_s, 14, true, true}     ? u"T "_s
                           : police == Police{u"Arial"_s, 10, true, true}   ? u"N "_s
                           : police == Police{u"Arial"_s, 10, false, false} ? u"t "_s
                           : police == Police{u"Arial"_s, 8, false, false}  ? u"p "_s
                                                                            : u"? "_s;
    textes.append(texte.isEmpty() ? u"-"_s : marque + texte);
  }
  return textes.join(u'|');
}

CadreListe Cadre(qsizetype nombre) {
  return {u"Paul"_s, nombre, QDateTime(QDate(2026, 6, 5), QTime(9, 8, 7))};
}

/// Record n of a list; its name is n, and it has nothing else.
std::optional<Correspondant> Numero(qsizetype n) {
  Correspondant fiche;
  fiche.NomVelmira = QString::number(n);
  return fiche;
}

}  // namespace

TEST(ImpressionListe, TeteEtPied) {
  for (const auto &[nombre, texte] :
       {std::pair{0, u"0 enregistrements"}, {1, u"1 enregistrements"}, {12, u"12 enregistrements"}})
    EXPECT_EQ(Textes(LignesTete(Cadre(nombre))),
              u"-|T Velmiras de Paul : "_s + QString::fromUtf16(texte) + u"|-|-|-|-"_s);
  EXPECT_EQ(Textes(LignesPied(Cadre(2))),
            u"-|-|-|p Imprimé le  05/06/2026  à  09:08:07|p Velmira"_s);
}

TEST(ImpressionListe, LignesDUneFiche) {
  Correspondant pleine;
  pleine.NomVelmira = u"Durand"_s;
  pleine.Ligne1 = u"M. Durand"_s;
  pleine.Ligne2 = u"a"_s;
  pleine.Ligne3 = u"b"_s;
  pleine.Ligne4 = u"c"_s;
  pleine.Ligne5 = u"d"_s;
  pleine.CodePostal = u"44000"_s;
  pleine.Ville = u"Nantes"_s;
  pleine.Pays = u"Belgique"_s;
  pleine.Tel = u"01"_s;
  pleine.TelTravail = u"02"_s;
  pleine.Portable = u"03"_s;
  pleine.Fax = u"04"_s;
  pleine.Mail = u"d@x.fr"_s;
  pleine.Web = u"x.fr"_s;
  pleine.ListeRougeTel = pleine.ListeRougeTravail = true;
  pleine.Commentaires = u"rien"_s;
  const ChoixListe tout;
  EXPECT_EQ(Textes(LignesFiche(pleine, tout)),
            u"N Durand|t a - b - c - d - 44000 - Nantes|-|t Tél. domicile : 01 - Tél. travail : 02"
            " - Portable : 03 - Fax : 04|t Email : d@x.fr - Site Web : x.fr|-"_s);

  // One box unticked takes one part away. A, T and M stand for the whole lines above.
  const struct {
    bool ChoixListe::*boite;
    const char16_t *reste;
  } cas[] = {
      {&ChoixListe::domicile, u"A|-|t Tél. travail : 02 - Portable : 03 - Fax : 04|M|-"},
      {&ChoixListe::travail, u"A|-|t Tél. domicile : 01 - Portable : 03 - Fax : 04|M|-"},
      {&ChoixListe::portable, u"A|-|t Tél. domicile : 01 - Tél. travail : 02 - Fax : 04|M|-"},
      {&ChoixListe::fax, u"A|-|t Tél. domicile : 01 - Tél. travail : 02 - Portable : 03|M|-"},
      {&ChoixListe::mail, u"A|-|T|t Site Web : x.fr|-"},
      {&ChoixListe::web, u"A|-|T|t Email : d@x.fr|-"},
      {&ChoixListe::adresse, u"-|T|M|-"},
  };
  for (const auto &c : cas) {
    ChoixListe choix;
    choix.*c.boite = false;
    QString attendue = QString::fromUtf16(c.reste);
    attendue.replace(u"|T|"_s,
                     u"|t Tél. domicile : 01 - Tél. travail : 02 - Portable : 03"
                     " - Fax : 04|"_s);
    attendue.replace(u"A|"_s, u"t a - b - c - d - 44000 - Nantes|"_s);
    attendue.replace(u"|M|"_s, u"|t Email : d@x.fr - Site Web : x.fr|"_s);
    EXPECT_EQ(Textes(LignesFiche(pleine, choix)), u"N Durand|"_s + attendue);
  }

  const ChoixListe rien{false, false, false, false, false, false, false};
  EXPECT_EQ(Textes(LignesFiche(pleine, rien)), u"N Durand|-|-"_s);

  // Null and empty fields leave no trace, and no separator.
  Correspondant vide;
  vide.NomVelmira = u"Zoé"_s;
  EXPECT_EQ(Textes(LignesFiche(vide, tout)), u"N Zoé|-|-"_s);
  vide.Ligne2 = vide.Tel = vide.Fax = vide.Mail = u""_s;
  vide.Ligne3 = u"b"_s;
  vide.Ville = u"Nantes"_s;
  vide.Portable = u"03"_s;
  vide.Web = u"x.fr"_s;
  EXPECT_EQ(Textes(LignesFiche(vide, tout)),
            u"N Zoé|t b - Nantes|-|t Portable : 03|t Site Web : x.fr|-"_s);
}

TEST(ImpressionListe, PlacesDesLignes) {
  ImprimanteFeinte imprimante;
  EXPECT_EQ(ImprimerListe(imprimante, Cadre(2), {}, Numero), kImprimee);
  EXPECT_TRUE(imprimante.terminee);
  const struct {
    const char16_t *texte;
    double y;
  } attendues[] = {
      {u"Velmiras de Paul : 2 enregistrements", 4},  // below the empty line
      {u"0", 4 + 5 * 5.6},
      {u"1", 32 + 3 * 4},
      {u"Imprimé le  05/06/2026  à  09:08:07", 44 + 6 * 4},
      {u"Velmira", 68 + 3.2},
  };
  ASSERT_EQ(imprimante.lignes.size(), std::size(attendues));
  for (std::size_t i = 0; i < imprimante.lignes.size(); ++i) {
    EXPECT_EQ(imprimante.lignes[i].texte, QString::fromUtf16(attendues[i].texte));
    EXPECT_NEAR(imprimante.lignes[i].y, attendues[i].y, 1e-6);
    EXPECT_EQ(imprimante.lignes[i].page, 1);
  }
}

// No line is lost or cut at the end of a page, and a page is left only when it is full.
TEST(ImpressionListe, Pages) {
  for (const qsizetype nombre : {2, 3, 5, 6, 7, 8, 40, 500}) {
    SCOPED_TRACE(nombre);
    ImprimanteFeinte imprimante;
    ASSERT_EQ(ImprimerListe(imprimante, Cadre(nombre), {}, Numero), kImprimee);
    const auto &lignes = imprimante.lignes;
    ASSERT_EQ(lignes.size(), static_cast<std::size_t>(nombre) + 3);
    for (qsizetype n = 0; n < nombre; ++n)
      EXPECT_EQ(lignes[static_cast<std::size_t>(n) + 1].texte, QString::number(n));

    // 25 lines of 4 mm fill a page; what stands above the first name is as high as 8.
    for (qsizetype n = 0; n < nombre; ++n) {
      const qsizetype ligne = 8 + 3 * n;
      const auto &ecrite = lignes[static_cast<std::size_t>(n) + 1];
      EXPECT_EQ(ecrite.page, 1 + ligne / 25);
      EXPECT_NEAR(ecrite.y, static_cast<double>(ligne % 25) * 4, 1e-6);
    }
    for (const auto &ligne : lignes) EXPECT_LE(ligne.y + ligne.police.points * 0.4, kHauteurFeinte);
    EXPECT_EQ(imprimante.pages, lignes.back().page);
  }
}

// What is wider than the page, 60 characters of 10 points, goes on in lines of its own, and these
// count for the pages.
TEST(ImpressionListe, LignesLarges) {
  const QString parties = u"Bâtiment C, deuxième étage - 238 bis boulevard de Lattre"_s;  // 56
  const QString mot(59, u'x');
  const struct {
    QString texte;
    QStringList lignes;
  } cas[] = {
      {parties + u" 79"_s, {parties + u" 79"_s}},
      {parties + u" 790"_s, {parties + u" 790"_s}},
      {parties + u" 7900"_s, {u"Bâtiment C, deuxième étage -"_s, parties.mid(29) + u" 7900"_s}},
      {mot.left(58) + u" - 44000"_s, {mot.left(58) + u" -"_s, u"44000"_s}},
      {mot + u" - 44000"_s, {mot, u"- 44000"_s}},
      {mot + u"x  un deux"_s, {mot + u'x', u"un deux"_s}},
      {u"Web : "_s + mot, {u"Web :"_s, mot}},
      {u"a - "_s + mot + mot, {u"a -"_s, mot + u'x', mot.left(58)}},
      // a sign made of two characters stays whole
      {mot + u"\U0001F600 fin"_s, {mot, u"\U0001F600 fin"_s}},
      {mot + u"e\u0301 fin"_s, {mot, u"e\u0301 fin"_s}},
  };
  for (const auto &[texte, attendues] : cas) {
    ImprimanteFeinte imprimante;
    const auto lire = [&texte = texte](qsizetype) {
      Correspondant fiche;
      fiche.NomVelmira = texte;
      return std::optional(fiche);
    };
    ASSERT_EQ(ImprimerListe(imprimante, Cadre(12), {}, lire), kImprimee);
    QStringList trouvees;
    for (const auto &ligne : imprimante.lignes) {
      EXPECT_LE(ligne.y + ligne.police.points * 0.4, kHauteurFeinte);
      if (ligne.police.points == 10) trouvees += ligne.texte;
    }
    QStringList douze;
    for (int i = 0; i < 12; ++i) douze += attendues;
    EXPECT_EQ(trouvees, douze) << qPrintable(texte);
    // The head is as high as 8 lines, the foot follows 3.
    EXPECT_EQ(imprimante.pages, 1 + (8 + 12 * (attendues.size() + 2) + 3 + 1) / 25);
  }
}

// One correspondent alone is counted and not printed; its record is not even read.
TEST(ImpressionListe, UnSeulCorrespondant) {
  for (const qsizetype nombre : {0, 1}) {
    ImprimanteFeinte imprimante;
    const auto lire = [](qsizetype) -> std::optional<Correspondant> {
      ADD_FAILURE() << "a record is read";
      return std::nullopt;
    };
    EXPECT_EQ(ImprimerListe(imprimante, Cadre(nombre), {}, lire), kImprimee);
    ASSERT_EQ(imprimante.lignes.size(), 3u);
    EXPECT_EQ(imprimante.lignes[0].texte, u"Velmiras de Paul : %1 enregistrements"_s.arg(nombre));
    EXPECT_NEAR(imprimante.lignes[1].y, 32 + 3 * 5.6, 1e-6);  // in the heading's size
  }
}

TEST(ImpressionListe, Fins) {
  // How the document ended, told as it was.
  for (const auto &fin : {FinImpression{Issue::Enregistree, u"Liste.pdf"_s}, kEchouee}) {
    ImprimanteFeinte imprimante;
    imprimante.fin = fin;
    EXPECT_EQ(ImprimerListe(imprimante, Cadre(2), {}, Numero), fin);
  }

  // Stopped, or failing, at the last record: nothing of what was written goes out.
  for (const bool panne : {false, true}) {
    ImprimanteFeinte imprimante;
    const auto lire = [panne](qsizetype rang) -> std::optional<Correspondant> {
      if (rang < 2) return Numero(rang);
      if (panne) throw ErreurFichier(u"panne"_s);
      return std::nullopt;
    };
    if (panne)
      EXPECT_THROW(ImprimerListe(imprimante, Cadre(3), {}, lire), ErreurFichier);
    else
      EXPECT_EQ(ImprimerListe(imprimante, Cadre(3), {}, lire), kEchouee);
    EXPECT_FALSE(imprimante.lignes.empty());
    EXPECT_FALSE(imprimante.terminee);
  }
}
