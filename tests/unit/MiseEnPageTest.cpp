// Places of the lines on the paper, computed here a second time from the geometry of the envelope.

#include "Outils.h"
#include "envelope/FormatsEnveloppe.h"
#include "envelope/MiseEnPage.h"

using namespace Qt::StringLiterals;

namespace {

constexpr std::initializer_list<Alignement> kAlignements{Alignement::Gauche, Alignement::Droite,
                                                         Alignement::Centre};

/// Width by the number of characters, wider and taller in bold: 2 mm and 4 mm at 10 points.
class MesureFeinte : public MesureTexte {
 public:
  Millimetres Largeur(const QString &texte, const Police &police) const override {
    return Millimetres(double(texte.size()) * (police.points / 5 + (police.gras ? 0.5 : 0)));
  }
  Millimetres HauteurLigne(const Police &police) const override {
    return Millimetres(police.points * 0.4 + (police.gras ? 0.25 : 0));
  }
};

ReglagesPlomex Ordinaire() {
  ReglagesPlomex p;
  p.Orientation = OrientationFeuille::Portrait;
  p.BordImprime = BordImprime::Gauche;
  p.PositionEnveloppe = PositionEnveloppe::Haut;
  p.PoliceA = u"Verdana"_s;
  p.TailleA = 10;
  p.PoliceE = u"Times New Roman"_s;
  p.TailleE = 8;
  return p;
}

struct Attendue {
  QString texte;
  double x, y;
  Police police;
};

QString Ecart(const std::vector<LignePlacee> &page, const std::vector<Attendue> &attendues) {
  if (page.size() != attendues.size()) return u"%1 lines"_s.arg(page.size());
  for (size_t i = 0; i < page.size(); ++i) {
    const auto &l = page[i];
    const auto &a = attendues[i];
    if (l.texte != a.texte || l.police != a.police || std::abs(l.x.valeur - a.x) > 1e-3 ||
        std::abs(l.y.valeur - a.y) > 1e-3)
      return u"%1: %2 %3, expected %4"_s.arg(l.texte)
          .arg(l.x.valeur)
          .arg(l.y.valeur)
          .arg(u"%1: %2 %3"_s.arg(a.texte).arg(a.x).arg(a.y));
  }
  return {};
}

/// One letter for each printed line: G for bold, m for not bold.
QString Graisses(const std::vector<LignePlacee> &page) {
  QString lettres;
  for (const auto &ligne : page) lettres += ligne.police.gras ? u'G' : u'm';
  return lettres;
}

}  // namespace

TEST(MiseEnPage, PlacesDeTousLesFormats) {
  const struct {
    QString libelle;
    double h, l;
  } formats[] = {
      {u"C4      (229 x 324 mm)"_s, 229, 324}, {u"C5      (162 x 229 mm)"_s, 162, 229},
      {u"C6      (114 x 162 mm)"_s, 114, 162}, {u"C65     (114 x 229 mm)"_s, 114, 229},
      {u"DL      (110 x 220 mm)"_s, 110, 220}, {u"E4      (220 x 310 mm)"_s, 220, 310},
      {u"E5      (155 x 220 mm)"_s, 155, 220}, {u"E6      (110 x 155 mm)"_s, 110, 155},
      {u"Taille personnalisée"_s, 77.5, 180},
  };
  const struct {
    qint16 max, may, mex, mey, droite, haute;
  } marges[] = {{0, 0, 0, 0, 0, 0}, {7, -3, 4, 9, 12, 5}, {-80, -60, -10, -20, -15, -8}};
  const MesureFeinte mesure;
  const Police pe{u"Times New Roman"_s, 8, false, false}, pa{u"Verdana"_s, 10, false, false};
  const Police pc{u"Times New Roman"_s, 10, true, true};

  for (size_t f = 0; f < 9; ++f) {
    const auto [libelle, h, l] = formats[f];
    EXPECT_EQ(QString::fromUtf16(kFormatsEnveloppe[f].libelle), libelle);
    if (f < 8) {
      EXPECT_EQ(kFormatsEnveloppe[f].hauteur.valeur, h);
      EXPECT_EQ(kFormatsEnveloppe[f].largeur.valeur, l);
    }
    for (int orientation : {1, 2})
      for (int bord : {1, 2})
        for (int position : {1, 2, 3})
          for (Alignement alignE : kAlignements)
            for (Alignement alignA : kAlignements)
              for (const auto &m : marges) {
                ReglagesPlomex p = Ordinaire();
                p.Orientation = static_cast<OrientationFeuille>(orientation);
                p.BordImprime = static_cast<BordImprime>(bord);
                p.PositionEnveloppe = static_cast<PositionEnveloppe>(position);
                p.AlignE = alignE;
                p.AlignA = alignA;
                p.MargeMAX = Millimetres(m.max);
                p.MargeMAY = Millimetres(m.may);
                p.MargeMEX = Millimetres(m.mex);
                p.MargeMEY = Millimetres(m.mey);
                p.MargeDroite = Millimetres(m.droite);
                p.MargeHaute = Millimetres(m.haute);
                EtatEnveloppe e;
                e.LargeurEnv = Millimetres(l);
                e.HauteurEnv = Millimetres(h);
                e.Commentaire = u"Rappel"_s;
                e.CommentaireGras = e.CommentaireSouligne = true;

                double ox = -m.droite, oy = -m.haute;
                if (orientation == 2 && bord == 2) ox += l - 220;
                if (orientation == 2 && position == 2) oy += (h - 110) / 2;
                if (orientation == 2 && position == 3) oy += h - 110;
                // What a line of width w moves right in a block of width W.
                const auto decale = [](Alignement align, double W, double w) {
                  return align == Alignement::Gauche   ? 0
                         : align == Alignement::Droite ? W - w
                                                       : W / 2 - w / 2;
                };
                const double xa = (m.max + 80) / 220.0 * l, ya = (m.may + 50) / 110.0 * h;
                const double xe = m.mex + 2, ye = (m.mey + 5) / 110.0 * h;
                const std::vector<Attendue> attendues{
                    {u"Rappel"_s, l - 40 - 6 * 2.5 - ox, ye - oy, pc},
                    {u"Moi"_s, xe + decale(alignE, 8 * 1.6, 3 * 1.6) - ox, ye - oy, pe},
                    {u"44 Paris"_s, xe - ox, ye + 3.2 - oy, pe},
                    {u"Paul"_s, xa + decale(alignA, 20, 8) - ox, ya - oy, pa},
                    {u"Durand Cie"_s, xa - ox, ya + 4 - oy, pa},
                    {u"Nantes"_s, xa + decale(alignA, 20, 12) - ox, ya + 12 - oy, pa},
                };
                const auto page = MettreEnPage(
                    p, e, {u"Moi\n44 Paris"_s, u"Paul\nDurand Cie\n\nNantes"_s, true}, mesure);
                ASSERT_EQ(Ecart(page, attendues), QString())
                    << libelle.toStdString() << ", orientation " << int(orientation) << ", edge "
                    << int(bord) << ", position " << int(position) << ", AlignE " << int(alignE)
                    << ", AlignA " << int(alignA) << ", MargeMAX " << m.max;
              }
  }
}

TEST(MiseEnPage, LignesGrasses) {
  const struct {
    quint8 grasA, premiere, derniere, pays;
    const char16_t *adresse, *graisses;
  } cas[] = {{0, 0, 0, 1, u"M\n44\n\nB", u"mmm"},
             {0, 1, 0, 0, u"M\nr\n44", u"Gmm"},
             {0, 0, 1, 0, u"M\nr\n44", u"mmG"},
             {0, 0, 1, 1, u"M\nr\n44\n\nB", u"mmGG"},
             {0, 0, 1, 1, u"M\n\n44\n\nB", u"mGG"},
             {0, 0, 1, 0, u"M\nr\n44\n\nB", u"mmmG"},
             {0, 0, 1, 1, u"M\n\nB", u"GG"},
             {0, 0, 1, 1, u"M\nB", u"mG"},
             {0, 1, 0, 0, u"M", u"G"},
             {0, 0, 1, 0, u"M", u"G"},
             {0, 1, 1, 0, u"M\nr\n44", u"GmG"},
             {0, 1, 0, 0, u"\nM\n44", u"mm"},
             {1, 0, 0, 0, u"M\nr\n44", u"GGG"},
             {1, 1, 1, 0, u"M\nr\n44", u"GGG"},
             {2, 0, 0, 0, u"M\n44", u"mm"},
             {0, 2, 2, 0, u"M\n44", u"mm"}};
  const MesureFeinte mesure;
  for (const auto &c : cas) {
    ReglagesPlomex p = Ordinaire();
    p.GrasA = Drapeau::DepuisNombre(c.grasA);
    p.GrasPLigne = Drapeau::DepuisNombre(c.premiere);
    p.GrasDLigne = Drapeau::DepuisNombre(c.derniere);
    const QString adresse = QString::fromUtf16(c.adresse);
    EXPECT_EQ(Graisses(MettreEnPage(p, {}, {{}, adresse, false, c.pays == 1}, mesure)),
              QString::fromUtf16(c.graisses))
        << adresse.toStdString();
  }
  ReglagesPlomex p = Ordinaire();
  p.GrasPLigne = p.GrasDLigne = true;
  EXPECT_EQ(Graisses(MettreEnPage(p, {}, {u"M\nr\n44"_s, {}, false}, mesure)), u"mmm"_s);
  p.GrasE = true;
  EXPECT_EQ(Graisses(MettreEnPage(p, {}, {u"M\nr\n44"_s, u"a\nb\nc"_s, false}, mesure)),
            u"GGGGmG"_s);
}

// The block is as wide as its widest line before the bold of single lines: a bold one overhangs to
// the left. The next line stands below by the height of the font that was used.
TEST(MiseEnPage, LargeurMesureeAvantLeGras) {
  const MesureFeinte mesure;
  const Police maigre{u"Verdana"_s, 10, false, false}, gras{u"Verdana"_s, 10, true, false};
  ReglagesPlomex p = Ordinaire();
  p.GrasPLigne = true;
  const ContenuEnveloppe contenu{{}, u"0123456789\nabcd"_s, false};
  const double deplace[] = {0, 20 - 25, 10 - 12.5}, suivante[] = {0, 12, 6};
  for (const auto align : {0u, 1u, 2u}) {
    p.AlignA = static_cast<Alignement>(align);
    EXPECT_EQ(Ecart(MettreEnPage(p, {}, contenu, mesure),
                    {{u"0123456789"_s, 80 + deplace[align], 50, gras},
                     {u"abcd"_s, 80 + suivante[align], 54.25, maigre}}),
              QString());
  }
  // A block in bold is measured in bold.
  p.GrasA = true;
  p.AlignA = Alignement::Droite;
  EXPECT_EQ(Ecart(MettreEnPage(p, {}, contenu, mesure),
                  {{u"0123456789"_s, 80, 50, gras}, {u"abcd"_s, 80 + 15, 54.25, gras}}),
            QString());
}

TEST(MiseEnPage, ZonesVides) {
  const MesureFeinte mesure;
  const QString blancs(85, u' ');
  const struct {
    QString expediteur, adresse;
    qint16 alignE, alignA;
    QString imprimees;
  } cas[] = {
      {u""_s, u""_s, 0, 0, u""_s},     {u""_s, blancs, 2, 2, u""_s},
      {u"E"_s, blancs, 0, 0, u"E"_s},  {u""_s, u"A\n\nB"_s, 0, 0, u"A|B"_s},
      {u"E"_s, u"A"_s, 3, 0, u"A"_s},  {u"E"_s, u"A"_s, 0, 3, u"E"_s},
      {u"E"_s, u"A"_s, -1, -1, u""_s}, {u"E\nF"_s, u"A"_s, 2, 1, u"E|F|A"_s},
  };
  for (const auto &c : cas) {
    ReglagesPlomex p = Ordinaire();
    p.AlignE = static_cast<Alignement>(c.alignE);
    p.AlignA = static_cast<Alignement>(c.alignA);
    EtatEnveloppe e;
    e.Commentaire = u"Rappel"_s;
    for (bool commentaire : {false, true}) {
      QStringList textes;
      for (const auto &l : MettreEnPage(p, e, {c.expediteur, c.adresse, commentaire}, mesure))
        textes.append(l.texte);
      if (commentaire) {
        ASSERT_FALSE(textes.isEmpty());
        EXPECT_EQ(textes.takeFirst(), u"Rappel"_s);
      }
      EXPECT_EQ(textes.join(u'|'), c.imprimees);
    }
  }
}

TEST(MiseEnPage, Commentaire) {
  const MesureFeinte mesure;
  EtatEnveloppe e;
  e.Commentaire = QString(200, u'x');  // longer than the envelope
  ReglagesPlomex p = Ordinaire();
  const LignePlacee ligne = MettreEnPage(p, e, {u""_s, u""_s, true}, mesure).front();
  EXPECT_NEAR(ligne.x.valeur, 220 - 40 - 400, 1e-3);
  EXPECT_NEAR(ligne.y.valeur, 5, 1e-3);
  EXPECT_EQ(ligne.police, (Police{u"Times New Roman"_s, 10, false, false}));

  const struct {
    const char16_t *texte;
    bool multiple, interdire, imprime;
  } cas[] = {{u"", false, false, false}, {u"x", false, false, true}, {u"x", false, true, true},
             {u"x", true, false, true},  {u"x", true, true, false},  {u"", true, false, false}};
  for (const auto &c : cas) {
    e.Commentaire = QString::fromUtf16(c.texte);
    e.ImpressionMultiple = c.multiple;
    EXPECT_EQ(CommentaireImprime({.InterdireCommentaire = c.interdire}, e), c.imprime)
        << c.multiple << c.interdire;
  }
}

TEST(MiseEnPage, Apercu) {
  // The lines of the print, reduced, but for the sender: a point smaller, its left end as printed.
  const MesureFeinte mesure;
  ReglagesPlomex p = Ordinaire();
  p.GrasPLigne = true;
  EtatEnveloppe e;
  e.Commentaire = u"Rappel"_s;
  const ContenuEnveloppe contenu{u"Moi\nIci"_s, u"Toi\n\nLà"_s, true};
  const auto page = MettreEnPage(p, e, contenu, mesure);
  const auto apercu = MettreEnApercu(p, e, contenu, mesure);
  ASSERT_EQ(page.size(), 5u);
  ASSERT_EQ(apercu.size(), page.size());
  for (std::size_t i = 0; i < page.size(); ++i) {
    const bool expediteur = i == 1 || i == 2;
    EXPECT_EQ(apercu[i].texte, page[i].texte);
    EXPECT_EQ(apercu[i].police.points, page[i].police.points - (expediteur ? 1 : 0));
    EXPECT_EQ(apercu[i].police.gras, page[i].police.gras);
    EXPECT_NEAR(apercu[i].x.valeur, page[i].x.valeur / (expediteur ? 1 : 1.18), 1e-3);
  }
  for (const std::size_t premiere : {0u, 1u, 3u})
    EXPECT_NEAR(apercu[premiere].y.valeur, page[premiere].y.valeur / 1.18, 1e-3);
}

TEST(MiseEnPage, ImpressionConfiguree) {
  for (int manque = 0; manque < 8; ++manque) {
    ReglagesPlomex p;
    if (!(manque & 1)) p.Orientation = OrientationFeuille::Paysage;
    if (!(manque & 2)) p.BordImprime = BordImprime::Gauche;
    if (!(manque & 4)) p.PositionEnveloppe = PositionEnveloppe::Bas;
    EXPECT_EQ(ImpressionConfiguree(p), manque == 0) << manque;
  }
}
