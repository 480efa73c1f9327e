// Where lines come on paper, and what is kept of a run.

#include "Outils.h"
#include "envelope/CadenceTirage.h"
#include "envelope/FormatsEnveloppe.h"
#include "envelope/MiseEnPage.h"
#include "envelope/PageEtalon.h"
#include "envelope/SuiviTirage.h"

#include <array>
#include <csignal>

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

/// "x,y" of each line on a page, "G" where it is bold.
static QString Places(const ReglagesPlomex &p, const EtatEnveloppe &e,
                      const ContenuEnveloppe &contenu) {
  const auto dixiemes = [](Millimetres l) {
    return QString::number(std::round(l.valeur * 10) / 10 + 0.0);
  };
  QStringList places;
  for (const LignePlacee &l : MettreEnPage(p, e, contenu, MesureFeinte()))
    places.append(dixiemes(l.x) + u',' + dixiemes(l.y) + (l.police.gras ? u"G"_s : u""_s));
  return places.join(u' ');
}

// Sheet, edge, position; format; alignments of sender and address; margins of the address, of the
// sender, to the right, above. Then the places of the comment, of the sender, of the address, whose
// third line is blank.
TEST(Papier, PlacesSurLEnveloppe) {
  Cas(R"(
    1 0 1 220 110  0 0  0 0 0 0 0 0 | 165,5G 2,5 2,8.2 80,50 80,54 80,62
    1 2 3 220 110  0 0  7 -3 4 9 12 5 | 177,19G 18,19 18,22.2 99,52 99,56 99,64
    2 2 2 229 162  1 1  0 0 0 0 0 0 | 165,-18.6G 1,-18.6 -7,-15.4 86.3,47.6 74.3,51.6 82.3,59.6
    2 1 3 324 229  2 2  0 0 0 0 0 0 | 269,-108.6G 6,-108.6 2,-105.4 123.8,-14.9 117.8,-10.9 121.8,-2.9
    1 2 3 180 77.5 0 0  -80 -60 -10 -20 -15 -8 | 110,-18.6G -23,-18.6 -23,-15.4 -15,-15 -15,-11 -15,-3
    0 2 1 229 114  2 1  0 0 0 0 0 0 | 165,5.2G -3,5.2 -7,8.4 86.3,51.8 74.3,55.8 82.3,63.8
    1 1 0 220 110  3 -1 0 0 0 0 0 0 | 165,5G
  )",
      [](Rangee c) {
        QList<double> n;
        for (const QString &nombre : c[0].simplified().split(u' ')) n.append(nombre.toDouble());
        ReglagesPlomex p;  // of 10 and 8 points
        p.Orientation = static_cast<OrientationFeuille>(n[0]);
        p.BordImprime = static_cast<BordImprime>(n[1]);
        p.PositionEnveloppe = static_cast<PositionEnveloppe>(n[2]);
        EXPECT_EQ(ImpressionConfiguree(p), n[0] * n[1] * n[2] > 0);
        p.AlignE = static_cast<Alignement>(n[5]);
        p.AlignA = static_cast<Alignement>(n[6]);
        int i = 7;
        for (Millimetres *marge :
             {&p.MargeMAX, &p.MargeMAY, &p.MargeMEX, &p.MargeMEY, &p.MargeDroite, &p.MargeHaute})
          *marge = Millimetres(n[i++]);
        const EtatEnveloppe e{Millimetres(n[3]), Millimetres(n[4]), {}, u"Rappel"_s, true};
        return Places(p, e, {u"Moi\n44 Paris"_s, u"Paul\nDurand Cie\n\nNantes"_s, true});
      });
  for (const auto &[libelle, hauteur, largeur] : kFormatsEnveloppe)
    EXPECT_TRUE(hauteur.valeur == 0 ||
                QString::fromUtf16(libelle).endsWith(
                    u"(%1 x %2 mm)"_s.arg(hauteur.valeur).arg(largeur.valeur)));
}

static Point Mm(double x, double y) {
  return {Millimetres(x), Millimetres(y)};
}

static QString Ecrit(Point p) {
  const auto centiemes = [](Millimetres l) {
    return QString::number(std::round(l.valeur * 100) / 100 + 0.0);
  };
  return centiemes(p.x) + u',' + centiemes(p.y);
}

// Choice of the paper, end that is printed first; name; where the place 10,20 of the page lies on
// the sheet, and the page's margins where the sheet's are 3, 5, 7 and 12.
TEST(Papier, PageSurLaFeuille) {
  Cas(R"(
    1 2 | enveloppe de 220 x 110 mm par le grand côté | 10,20 3,5 7,12
    2 1 | enveloppe de 220 x 110 mm par le petit côté gauche | 90,10 5,7 12,3
    2 2 | enveloppe de 220 x 110 mm par le petit côté droit | 20,210 12,3 5,7
    0 2 | A4 paysage | 190,10 5,7 12,3
  )",
      [](Rangee c) {
        ReglagesPlomex p;
        p.Orientation = OrientationFeuille::Paysage;
        p.BordImprime = static_cast<BordImprime>(c[0][2].digitValue());
        const auto choix = static_cast<PapierEnveloppe>(c[0][0].digitValue());
        const Papier papier = PapierPour(p, choix, {kLongueurDL, kHauteurDL});
        EXPECT_EQ(papier.Nom(), c[1]);
        const Marges m =
            papier.SurPage({Millimetres(3), Millimetres(5), Millimetres(7), Millimetres(12)});
        return Ecrit(Pose(papier, Mm(4, 8), {})(Mm(6, 12))) + u' ' + Ecrit({m.gauche, m.haut}) +
               u' ' + Ecrit({m.droite, m.bas});
      });
  // On the envelope itself the tray moves nothing, and nothing begins before the printable corner.
  ReglagesPlomex p;
  p.BordImprime = BordImprime::Droit;
  p.PositionEnveloppe = PositionEnveloppe::Bas;
  p.MargeDroite = Millimetres(1);
  EtatEnveloppe c5;
  c5.LargeurEnv = Millimetres(229), c5.HauteurEnv = Millimetres(162);
  const auto lignes = MettreEnPage(p, c5, {u"Moi"_s, u"Paul"_s}, MesureFeinte(), Mm(4, 3));
  EXPECT_EQ(Ecrit({lignes[0].x, lignes[0].y}), u"4,7.36"_s);
  EXPECT_EQ(Ecrit({lignes[1].x, lignes[1].y}), u"84.27,73.64"_s);

  const std::vector<Taille> tailles{Papier().page,
                                    {Millimetres(110), Millimetres(220)},
                                    {Millimetres(161.2), Millimetres(229.9)},
                                    {Millimetres(161.8), Millimetres(229)}};
  EXPECT_EQ(PlusProche(tailles, {Millimetres(110.9), Millimetres(219.1)}), 1);
  EXPECT_EQ(PlusProche(tailles, {Millimetres(162), Millimetres(229)}), 3);
  for (const Taille &autre :
       {Taille{Millimetres(111.1), Millimetres(220)}, Taille{Millimetres(220), Millimetres(110)}})
    EXPECT_EQ(PlusProche(tailles, autre), std::nullopt);
}

// What a printer does: both scales, both shifts. Measured once, its pages come out right, also
// where it was corrected wrongly before; then what is said of the correction.
TEST(Papier, CorrectionMesuree) {
  Cas(R"(
    0.985 0.985 3 -2 | 1,4 mm à gauche, 4,2 mm plus bas, taille 101,5 %
    1 1 0 0.04       |
    1 1.02 -5 0      | 5 mm à droite, 3 mm plus haut, largeur 100 %, hauteur 98 %
  )",
      [](Rangee c) {
        const QStringList n = c[0].split(u' ');
        const Correction imprimante{n[0].toDouble(), n[1].toDouble(),
                                    Mm(n[2].toDouble(), n[3].toDouble())};
        const Taille page{Millimetres(210), Millimetres(297)};
        const MesureEtalon voulue = EtalonVoulu(page);
        Correction correction;
        for (const Correction &avant : {Correction{}, Correction{1.01, 0.98, Mm(-4, 7)}}) {
          const MesureEtalon mesuree{imprimante.Arrivee(avant.Envoi(voulue.croix)),
                                     voulue.regleX * (imprimante.echelleX / avant.echelleX),
                                     voulue.regleY * (imprimante.echelleY / avant.echelleY)};
          EXPECT_TRUE(EstPlausible(voulue, mesuree));
          correction = Corriger(avant, voulue, mesuree);
          for (const Point place : {Mm(0, 0), Mm(80, 50), Mm(210, 297)})
            EXPECT_EQ(Ecrit(imprimante.Arrivee(correction.Envoi(place))), Ecrit(place));
        }
        return TexteCorrection(correction, page);
      });
  const MesureEtalon dl = EtalonVoulu({kLongueurDL, kHauteurDL});
  EXPECT_EQ(dl.regleY, Millimetres(70)) << "what fits";
  EXPECT_FALSE(EstPlausible(dl, {dl.croix, Millimetres(88), dl.regleY}));
  EXPECT_FALSE(EstPlausible(dl, {Mm(11, 55), dl.regleX, dl.regleY}));
}

// First and last line in bold, and the town before a country; the country, the alignment. A block
// is as wide as its widest line before the bold of single lines, which overhang.
TEST(Papier, LignesGrasses) {
  Cas(R"(
    0 0 | M↵r↵44 | 80,50G 80,54.3 80,58.3G    || 1 0 | M↵r↵44↵↵B | 80,50G 80,54.3 80,58.3G 80,66.5G
    0 0 | ↵M↵44 | 80,54.3 80,58.3G            || 1 0 | M↵B | 80,50G 80,54.3G
    0 1 | 0123456789↵abcd | 75,50G 90,54.3G   || 0 2 | 0123456789↵abcd | 77.5,50G 85,54.3G
  )",
      [](Rangee c) {
        ReglagesPlomex p;
        p.Orientation = OrientationFeuille::Portrait;
        p.GrasPLigne = p.GrasDLigne = Drapeau::DepuisNombre(1);
        p.AlignA = static_cast<Alignement>(c[0][2].digitValue());
        return Places(p, {}, {{}, c[1], false, c[0][0] == u'1'});
      });
}

// Seconds that the envelopes took; how many are left behind the present one.
TEST(Papier, ResteDuTirage) {
  Cas(R"(
    4 4   | 9   | Il en reste 9 après celle-ci.
    9 4 5 | 9   | Il en reste 9 après celle-ci : environ une minute.
    4 4 4 | 19  | Il en reste 19 après celle-ci : environ 2 minutes.
    5 5 5 | 1   | Il en reste une après celle-ci : moins d'une minute.
    5 5 5 | 400 | Il en reste 400 après celle-ci : environ 34 minutes.
    5 5 5 | 0   | C'est la dernière.
    999 5 5 5 5 5 5 5 5 5 5 | 999 | Il en reste 999 après celle-ci : environ 1 h 20.
  )",
      [](Rangee c) {
        CadenceTirage cadence;
        for (const QString &duree : c[0].split(u' '))
          cadence.Noter(std::chrono::seconds(duree.toInt()));
        return TexteReste(c[1].toInt(), cadence.Pour(c[1].toInt() + 1));
      });
}

// A run that is killed is offered as it stood then; not while it goes, nor to another database.
TEST_F(DansUnDossier, TirageTue) {
  EtatTirage depart;
  depart.base = u"b"_s;
  depart.titre = u"Łódź"_s;
  depart.debut = QDateTime(QDate(2026, 6, 5), QTime(9, 8, 7));
  depart.enveloppe = {Millimetres(162),
                      Millimetres(114.5),
                      {u"Moi$1*P$"_s, OptionCP::VilleDevant},
                      u"Rappel"_s,
                      true};
  depart.destinataires = {{7, u"A"_s, {u"a$"_s}}, {8, u"\"É\""_s, {u"é$"_s}}, {9, u"C"_s, {}}};
  depart.sansAdresse = QStringList{u"Zoé"_s};
  std::array<int, 2> fait{};
  ASSERT_EQ(pipe(fait.data()), 0);
  const pid_t fils = fork();
  if (fils == 0) {
    SuiviTirage suivi(Chemin(), depart);
    suivi.NoterFaites(1, depart.enveloppe);
    suivi.NoterIncertaine(true);
    if (write(fait[1], "", 1) == 1) pause();
    _exit(1);
  }
  char octet = 0;
  ASSERT_EQ(read(fait[0], &octet, 1), 1);
  EXPECT_EQ(SuiviTirage::Interrompu(Chemin(), u"b"_s), nullptr);
  kill(fils, SIGKILL);
  waitpid(fils, nullptr, 0);
  Poser(u"Tirages/20270101-000000-1.json"_s, "{");
  EXPECT_EQ(SuiviTirage::Interrompu(Chemin(), u"autre"_s), nullptr);
  const auto repris = SuiviTirage::Interrompu(Chemin(), u"b"_s);
  ASSERT_NE(repris, nullptr);
  EtatTirage etat = repris->Etat();
  EXPECT_TRUE(etat.incertaine && etat.faites == 1 && etat.sansAdresse == depart.sansAdresse);
  EXPECT_EQ(etat.titre + etat.debut.toString(u"ddHHmmss"_s), u"Łódź05090807"_s);
  EXPECT_EQ(std::tuple(etat.enveloppe.HauteurEnv, etat.enveloppe.ExpediteurCourant,
                       etat.enveloppe.Commentaire, etat.enveloppe.CommentaireGras),
            std::tuple(Millimetres(114.5), depart.enveloppe.ExpediteurCourant, u"Rappel"_s, true));
  EXPECT_EQ(std::tuple(etat.destinataires[1].cle, etat.destinataires[1].nom,
                       etat.destinataires[1].adresse.chaine),
            std::tuple(8, u"\"É\""_s, u"é$"_s));
  {
    const DisquePlein plein(100);  // what it says would no longer be true
    repris->NoterFaites(2, etat.enveloppe);
  }
  EXPECT_FALSE(repris->EstGarde());
  EXPECT_EQ(SuiviTirage::Interrompu(Chemin(), u"b"_s), nullptr);
}
