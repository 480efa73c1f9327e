// The settings files.

#include "Outils.h"
#include "platform/Erreurs.h"
#include "storage/Reglages.h"

using namespace Qt::StringLiterals;

namespace {

class ReglagesTest : public DansUnDossier {
 protected:
  QString App() const { return Chemin(); }

  ReglagesPlomex LirePlomex(const QByteArray &octets) const {
    Poser(u"Plomex.ini"_s, octets);
    Reglages reglages;
    LireReglages(App(), reglages);
    return reglages.plomex;
  }
  ReglagesRTColor LireCouleurs(const QByteArray &octets) const {
    Poser(u"RTColor.ini"_s, octets);
    Reglages reglages;
    LireReglages(App(), reglages);
    return reglages.rtcolor;
  }
};

const QByteArray kRTColorDefaut = "225,150,70,\"Utilisateur\",1,9000,0,0,0,0,1,0,0,0\r\n";

// Every key in its place, every value unlike its neighbours.
const QByteArray kPlomex =
    "[Defaut]\r\nImprimante=HP Test\r\nOrientation=2\r\nBord imprim\xE9=1\r\n"
    "Position enveloppe=3\r\nPoliceA=Verdana\r\nPoliceE=Courier New\r\nTailleA=11\r\nTailleE=9\r\n"
    "GrasA=4\r\nGrasE=5\r\nNePas=6\r\nSautLigne=7\r\nSautDLigne=8\r\nGrasDLigne=10\r\n"
    "SautPLigne=12\r\nGrasPLigne=13\r\nMargeHaute=-14\r\nMargeDroite=15\r\nRaccourci=116\r\n"
    "Minimise=255\r\nMargeMAX=-16\r\nMargeMAY=17\r\nMargeMEX=-32768\r\nMargeMEY=32767\r\n"
    "AlignE=18\r\nAlignA=19\r\nAdresse=True\r\nEnveloppe=False\r\nAdresseEnGras=True\r\n"
    "TaillePoliceTV1=False\r\nTaillePoliceTV2=True\r\nTelephone=True\r\nIcoMenu=False\r\n";

}  // namespace

TEST_F(ReglagesTest, PlomexLes33ClesDansLOrdre) {
  const ReglagesPlomex p = LirePlomex(kPlomex);
  EXPECT_EQ(std::tuple(p.Imprimante, int(p.Orientation), int(p.BordImprime),
                       int(p.PositionEnveloppe), p.PoliceA, p.PoliceE, p.TailleA, p.TailleE),
            std::tuple(u"HP Test"_s, 2, 1, 3, u"Verdana"_s, u"Courier New"_s, 11, 9));
  EXPECT_EQ(std::tuple(p.GrasA.Nombre(), p.GrasE.Nombre(), p.NePas.Nombre(), p.SautLigne.Nombre(),
                       p.SautDLigne.Nombre(), p.GrasDLigne.Nombre(), p.SautPLigne.Nombre(),
                       p.GrasPLigne.Nombre()),
            std::tuple(4, 5, 6, 7, 8, 10, 12, 13));
  EXPECT_EQ(std::tuple(p.MargeHaute.valeur, p.MargeDroite.valeur, p.Raccourci, p.Minimise.Nombre(),
                       p.MargeMAX.valeur, p.MargeMAY.valeur, p.MargeMEX.valeur, p.MargeMEY.valeur,
                       int(p.AlignE), int(p.AlignA)),
            std::tuple(-14, 15, 116, 255, -16, 17, -32768, 32767, 18, 19));
  EXPECT_EQ(std::tuple(p.Adresse, p.Enveloppe, p.AdresseEnGras, p.TaillePoliceTV1,
                       p.TaillePoliceTV2, p.Telephone, p.IcoMenu),
            std::tuple(true, false, true, false, true, true, false));
  EXPECT_EQ(kPlomex.count('='), 33);
  for (bool vide : {false, true}) {
    QFile::remove(Chemin(u"Plomex.ini"_s));
    if (vide) Poser(u"Plomex.ini"_s, "");
    EcrireReglages(App(), p);
    EXPECT_EQ(Octets(u"Plomex.ini"_s), kPlomex);
  }
}

TEST_F(ReglagesTest, PlomexAbsent) {
  Reglages r;
  LireReglages(App(), r);
  EXPECT_EQ(std::tuple(r.plomex.PoliceA, r.plomex.TailleA, r.plomex.PoliceE, r.plomex.TailleE),
            std::tuple(u"Arial"_s, 10, u"Arial"_s, 8));
  EXPECT_FALSE(r.plomex.Orientation != OrientationFeuille::NonConfiguree ||
               r.plomex.MargeMAX != Millimetres() || r.plomex.AlignA != Alignement::Gauche);
  EXPECT_FALSE(Existe(u"Plomex.ini"_s)) << "reading writes nothing";
}

TEST_F(ReglagesTest, PlomexReecritureGardeLeReste) {
  Poser(u"Plomex.ini"_s,
        "; \351crit \340 la main\r\n[Autre]\r\nTailleA = 99\r\n\r\n[Defaut]\r\n"
        "  Inconnue   =  garde-moi \r\nTailleA=12\r\nligne sans signe\r\n; TailleE=1\r\n"
        "BORD IMPRIM\xC9=2\r\n\r\n[Fin]\r\nx=y\r\n");
  Reglages r;
  LireReglages(App(), r);
  EXPECT_EQ(r.plomex.TailleA, 12);
  EXPECT_EQ(r.plomex.BordImprime, BordImprime::Droit);
  r.plomex.TailleA = 14;
  EcrireReglages(App(), r.plomex);
  const QByteArray apres = Octets(u"Plomex.ini"_s);
  EXPECT_TRUE(apres.startsWith(
      "; \351crit \340 la main\r\n[Autre]\r\nTailleA = 99\r\n\r\n[Defaut]\r\n"
      "  Inconnue   =  garde-moi \r\nTailleA=14\r\nligne sans signe\r\n; TailleE=1\r\n"
      "BORD IMPRIM\xC9=2\r\nImprimante=\r\n"))
      << apres.constData();
  EXPECT_TRUE(apres.endsWith("IcoMenu=False\r\n\r\n[Fin]\r\nx=y\r\n")) << apres.constData();
  EcrireReglages(App(), r.plomex);
  EXPECT_EQ(Octets(u"Plomex.ini"_s), apres) << "a second writing changes nothing";
}

TEST_F(ReglagesTest, PlomexTextesCoupes) {
  const QByteArray long50 = "Imprimante laser du premier etage, porte 12, gauche";
  const auto p = LirePlomex("[Defaut]\r\nImprimante=" + long50 + "\r\nPoliceA=" + long50 + "\r\n");
  EXPECT_EQ(p.Imprimante, QString::fromLatin1(long50.left(39)));
  EXPECT_EQ(p.PoliceA, QString::fromLatin1(long50.left(29)));
}

TEST(NomComplet, SeulementCeQueLeFichierRendrait) {
  const QString long50 = u"Imprimante laser du premier etage, porte 12, droite"_s;
  const QString coupe = long50.left(kLongueurImprimante);
  const auto complet = [](const QStringList &noms, const QString &nom) {
    return NomComplet(noms, nom, kLongueurImprimante).value_or(u"aucun"_s);
  };
  for (const QString &nom : {u"Partie"_s, u""_s, u"pdf"_s, u"PD"_s, long50, coupe, u"PD?"_s})
    EXPECT_EQ(complet({u"HP"_s, u"PDF"_s}, nom), u"aucun"_s) << nom.toStdString();
  EXPECT_EQ(complet({u"HP"_s, u"PDF"_s}, u"PDF"_s), u"PDF"_s);
  EXPECT_EQ(complet({long50 + u"2"_s, long50}, long50), long50);
  EXPECT_EQ(complet({u"HP"_s, long50}, coupe), long50);
  EXPECT_EQ(complet({u"HP"_s, long50, long50 + u"2"_s}, coupe), u"aucun"_s) << "one of two";
  EXPECT_EQ(complet({long50, coupe}, coupe), coupe);
  EXPECT_EQ(complet({long50}, long50.left(38)), u"aucun"_s);
  EXPECT_EQ(complet({u"HP"_s, u"印刷 2"_s}, u"?? 2"_s), u"印刷 2"_s);
}

TEST_F(ReglagesTest, PlomexValeursHorsNorme) {
  Reglages r;
  r.plomex = LirePlomex(kPlomex);
  Poser(u"Plomex.ini"_s,
        "[Defaut]\r\nOrientation=256\r\nBord imprim\xE9=-1\r\nPosition enveloppe=trois\r\n"
        "TailleA=32768\r\nTailleE=-32769\r\nGrasA=\r\nMargeHaute=1e99\r\nMargeMAX=nan\r\n"
        "MargeMAY=inf\r\nMargeMEX= -5 \r\nAlignE=99999999999999999999999999999999\r\n"
        "Adresse=peut-etre\r\n");
  LireReglages(App(), r);
  const ReglagesPlomex &p = r.plomex;
  EXPECT_EQ(std::tuple(int(p.Orientation), int(p.BordImprime), int(p.PositionEnveloppe), p.TailleA,
                       p.TailleE, p.GrasA.Nombre(), p.MargeHaute.valeur, p.MargeMAX.valeur,
                       p.MargeMAY.valeur),
            std::tuple(2, 1, 3, 11, 9, 4, -14, -16, 17));
  EXPECT_EQ(std::tuple(p.MargeMEX.valeur, int(p.AlignE), p.Adresse), std::tuple(-5, 18, true));
}

TEST_F(ReglagesTest, PlomexCoches) {
  for (const char *vrai : {"True", "TRUE", "Vrai", "vrai", "1", "-1"})
    EXPECT_TRUE(LirePlomex("[Defaut]\r\nTelephone=" + QByteArray(vrai)).Telephone) << vrai;
  Reglages r;
  for (const char *faux : {"False", "Faux", "FAUX", "0"}) {
    r.plomex.Telephone = true;
    Poser(u"Plomex.ini"_s, "[Defaut]\r\nTelephone=" + QByteArray(faux));
    LireReglages(App(), r);
    EXPECT_FALSE(r.plomex.Telephone) << faux;
  }
}

TEST_F(ReglagesTest, RTColor) {
  Reglages neufs;
  LireReglages(App(), neufs);
  EXPECT_EQ(Octets(u"RTColor.ini"_s), kRTColorDefaut);
  ReglagesRTColor r;

  const QByteArray autre = "1,2,3,\"Zo\xE9, \x80\",4,5000,6,7,8,9,10,-11,12,13\r\n";
  r = LireCouleurs(autre);
  EXPECT_EQ(std::tuple(r.CouleurR, r.CouleurV, r.CouleurB, r.NomPerso, r.PortCom, r.TailleFenetre,
                       r.OuvrirSurFavoris.Nombre()),
            std::tuple(1, 2, 3, u"Zoé, €"_s, 4, 5000, 6));
  EXPECT_EQ(std::tuple(r.MenuClicDroit.Nombre(), int(int(r.AffichageNaissance)),
                       r.AnnulerCommentaire.Nombre(), r.InterdireCommentaire.Nombre(),
                       r.VitesseTransition, r.EffetVisuel.Nombre(), r.FondUni.Nombre()),
            std::tuple(7, 8, 9, 10, -11, 12, 13));
  QFile::remove(Chemin(u"RTColor.ini"_s));
  EcrireRTColor(App(), r);
  EXPECT_EQ(Octets(u"RTColor.ini"_s), autre);

  r = LireCouleurs("10,20,30,\"Paul\",2,8000,1,1,2,1,0\r\n");  // 11 values
  EXPECT_EQ(std::tuple(r.CouleurR, r.AnnulerCommentaire.Nombre(), r.InterdireCommentaire.Nombre(),
                       r.VitesseTransition, r.EffetVisuel.Nombre(), r.FondUni.Nombre()),
            std::tuple(10, 1, 0, 0, 0, 0));
  r = LireCouleurs("10,20,30,\"Paul\",2,8000,1,1,2\r\n");
  EXPECT_EQ(std::tuple(r.AnnulerCommentaire.Nombre(), r.InterdireCommentaire.Nombre()),
            std::tuple(0, 1));
  for (const auto &[lue, hauteur] : {std::pair("0", 9000), {"1", 9000}, {"2", 2}})
    EXPECT_EQ(LireCouleurs(QByteArray("1,1,1,\"\",1,") + lue + ",0,0").TailleFenetre, hauteur);
  r = LireCouleurs("40000,rouge,70,\"Paul\",300,99999999999,1,-1,2\r\n");
  EXPECT_EQ(
      std::tuple(r.CouleurR, r.CouleurV, r.PortCom, r.TailleFenetre, r.OuvrirSurFavoris.Nombre(),
                 r.MenuClicDroit.Nombre(), int(r.AffichageNaissance)),
      std::tuple(225, 150, 1, 9000, 1, 0, 2));
}

TEST_F(ReglagesTest, MemoraEtAlarme) {
  Reglages r;
  for (const bool present : {false, true}) {
    if (present) Poser(u"Memora.ini"_s, "0,1\r\n");
    if (present) Poser(u"Alarme.ini"_s, "1,2,3\r\n");
    LireReglages(App(), r);
    EXPECT_EQ(std::tuple(r.memora.LancerAuDemarrage.Nombre(), r.memora.AssocierAlertes.Nombre()),
              std::tuple(0, present ? 1 : 0));
    EXPECT_EQ(std::tuple(r.alarme.AlerteAvecWindows.Nombre(), r.alarme.AlerteAvecProgramme.Nombre(),
                         r.alarme.AlerteDivers.Nombre()),
              (present ? std::tuple(1, 2, 3) : std::tuple(0, 0, 0)));
  }
}

TEST_F(ReglagesTest, SauvanTientSurLaCoche) {
  const std::pair<const char *, bool> cas[] = {
      {nullptr, true}, {"1,0\r\n", false}, {"0,1\r\n", true}, {"1,1\r\n", true}};
  for (const auto &[sauvan, coche] : cas) {
    Poser(u"Plomex.ini"_s, "[Defaut]\r\nAdresse=True\r\n");
    if (sauvan) Poser(u"Sauvan.cfg"_s, sauvan);
    Reglages r;
    LireReglages(App(), r);
    EXPECT_EQ(r.plomex.Adresse, coche) << (sauvan ? sauvan : "no file");
  }
}

TEST_F(ReglagesTest, Liaison) {
  const auto lues = [this] {
    Reglages r;
    r.SeparateurTel = u"ancien"_s;
    r.LiaisonCP = u" : "_s;
    LireReglages(App(), r);
    return std::pair(r.SeparateurTel, r.LiaisonCP);
  };
  EXPECT_EQ(lues(), std::pair(u" "_s, u" - "_s));
  Poser(u"Liaison.cfg"_s, "\".\",\"\"\r\n");
  EXPECT_EQ(lues(), std::pair(u"."_s, u" - "_s)) << "the second value does not outlive its run";
  Poser(u"Liaison.txt"_s, "\" / \"\r\n");
  EXPECT_EQ(lues(), std::pair(u"."_s, u" / "_s));
  EXPECT_FALSE(Existe(u"Liaison.txt"_s));
}

// Whatever stands in the place of a settings file: reading never fails, numbers keep what they had.
TEST_F(ReglagesTest, FichiersAbimes) {
  QByteArray tous;
  for (int i = 0; i < 256; ++i) tous += static_cast<char>(i);
  const QByteArray dixMo(10 * 1024 * 1024, '9');
  const struct {
    const char *nom;
    QByteArray octets;
    bool dossier;
  } etats[] = {{"empty", "", false},
               {"folder", "", true},
               {"binary", tous, false},
               {"10 MB in a value", "[Defaut]\r\nTailleA=" + dixMo, false},
               {"10 MB on one line, never closed", '"' + dixMo, false}};
  const QStringList fichiers{u"Plomex.ini"_s, u"RTColor.ini"_s, u"Memora.ini"_s, u"Alarme.ini"_s,
                             u"Sauvan.cfg"_s, u"Liaison.cfg"_s, u"Liaison.txt"_s};
  for (const auto &etat : etats) {
    SCOPED_TRACE(etat.nom);
    for (const QString &fichier : fichiers) {
      QFile::remove(Chemin(fichier));
      if (etat.dossier)
        ASSERT_TRUE(QDir().mkdir(Chemin(fichier)));
      else
        Poser(fichier, etat.octets);
    }
    Reglages r;
    r.plomex.TailleA = 33;
    r.plomex.MargeMAX = Millimetres(-7);
    const auto nombre = Drapeau::DepuisNombre;
    r.memora = {nombre(4), nombre(5)};
    r.alarme = {nombre(6), nombre(7), nombre(8)};
    r.sauvan = {nombre(9), true};
    ASSERT_NO_THROW(LireReglages(App(), r));
    EXPECT_EQ(std::tuple(r.plomex.TailleA, r.plomex.MargeMAX.valeur, r.rtcolor.CouleurR,
                         r.rtcolor.TailleFenetre, r.rtcolor.InterdireCommentaire.Nombre()),
              std::tuple(etat.dossier ? 10 : 33, -7, 225, 9000, 1));
    EXPECT_EQ(std::tuple(r.memora.LancerAuDemarrage.Nombre(), r.memora.AssocierAlertes.Nombre(),
                         r.alarme.AlerteAvecWindows.Nombre(), r.sauvan.AdressesPresentes.Nombre()),
              std::tuple(4, 5, 6, 1));
    if (etat.dossier) {
      EXPECT_THROW(EcrireReglages(App(), r.plomex), ErreurFichier);
      for (const QString &fichier : fichiers) {
        EXPECT_TRUE(QFileInfo(Chemin(fichier)).isDir()) << fichier.toStdString();
        QDir().rmdir(Chemin(fichier));
      }
    } else {
      r.plomex.TailleA = 21;
      EcrireReglages(App(), r.plomex);
      EXPECT_TRUE(Octets(u"Plomex.ini"_s).contains("\nTailleA=21"));
      LireReglages(App(), r);
      EXPECT_EQ(r.plomex.TailleA, 21);
    }
  }
}

TEST_F(ReglagesTest, EcritureImpossible) {
  Poser(u"fichier"_s, "x");
  EXPECT_THROW(EcrireReglages(Chemin(u"fichier"_s), {}), ErreurFichier);
  EXPECT_THROW(EcrireRTColor(Chemin(u"fichier"_s), {}), ErreurFichier);
  Reglages r;
  EXPECT_NO_THROW(LireReglages(Chemin(u"fichier"_s), r));
  EXPECT_EQ(r.rtcolor.CouleurR, 225);

  Poser(u"Plomex.ini"_s, kPlomex);
  Poser(u"RTColor.ini"_s, kRTColorDefaut);
  {
    const DisquePlein plein(16);
    EXPECT_THROW(EcrireReglages(App(), {}), ErreurFichier);
    EXPECT_THROW(EcrireRTColor(App(), {.CouleurR = 1}), ErreurFichier);
  }
  EXPECT_EQ(Octets(u"Plomex.ini"_s), kPlomex);
  EXPECT_EQ(Octets(u"RTColor.ini"_s), kRTColorDefaut);
  EXPECT_EQ(Contenu(), (QStringList{u"fichier"_s, u"Plomex.ini"_s, u"RTColor.ini"_s}));
}
