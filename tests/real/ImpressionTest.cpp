// What the printer "PDF" puts on paper, envelopes and the list, and into which files.

#include "Reel.h"
#include "directory/ImpressionListe.h"

#include <future>

namespace {

class Impression : public Papier {
 protected:
  QString Chemin(const QString &nom) const { return dossier_.filePath(u"courrier/"_s + nom); }
  QString Pdf() { return Imprimer(pdf_).fichier; }
};

TEST_F(Impression, EnveloppesSurLaPage) {
  const QString simple = Pdf();
  Verifier(LirePages(simple)[0], 210, 80, 50, 2, 5);
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
  EXPECT_NEAR(LirePages(gras)[0](u"Recommandé"_s).droite, 180, kTolerance) << "its bold width";

  plomex_.Orientation = OrientationFeuille::Paysage;
  etat_.LargeurEnv = Millimetres(162), etat_.HauteurEnv = Millimetres(114);
  Verifier(LirePages(Pdf())[0], 297, 116.909, 49.818, 60, 3.182);
}

// None is replaced, and none is left of what is given up or does not fit.
TEST_F(Impression, Fichiers) {
  EXPECT_EQ(imprimante_.Noms(), QStringList(pdf_)) << "there is no server";
  EXPECT_EQ(imprimante_.ParDefaut(), pdf_);
  EXPECT_THROW(Imprimer(u"Imprimante disparue"_s), Erreur);
  imprimante_.Ouvrir(pdf_, {.nom = u"Perdu"_s})->NouvellePage();
  {
    const DisquePlein plein(4096);
    const FinImpression fin = Imprimer(pdf_);
    EXPECT_EQ(fin.issue, FinImpression::Issue::Echouee);
    EXPECT_TRUE(fin.raison.contains(u"plus de place"_s)) << qPrintable(fin.raison);
  }
  EXPECT_EQ(QDir(Chemin({})).entryList(QDir::Files | QDir::Hidden), QStringList());

  const QString pris = Chemin(u"Enveloppe 2026-06-05 09h08m07 n2.pdf"_s);
  RemplacerFichier(pris, "un autre");
  EXPECT_EQ(Pdf(), Chemin(u"Enveloppe 2026-06-05 09h08m07 n1.pdf"_s));
  const FinImpression fin = Imprimer(pdf_);
  EXPECT_EQ(fin.issue, FinImpression::Issue::Enregistree);
  EXPECT_EQ(fin.fichier, Chemin(u"Enveloppe 2026-06-05 09h08m07 n3.pdf"_s));
  EXPECT_EQ(LireFichier(pris), QByteArray("un autre"));
  ImprimanteSysteme sansDossier(horloge_, pris + u"/courrier"_s);
  EXPECT_TRUE(sansDossier.Ouvrir(pdf_, {})->Terminer().raison.contains(pris));
}

// Every line once and in its order, in a thread without an event loop; the pages are filled, and
// what is too wide goes on below.
TEST_F(Impression, ListeDeCinqCents) {
  constexpr double kMarge = 15, kLigne = 10 * 1.1499 * kPoint.valeur;
  QString attendu, trouve;
  const auto lire = [&](qsizetype n) {
    Correspondant fiche;
    fiche.NomVelmira = u"nom%1."_s.arg(n), fiche.Ligne2 = u"rue%1."_s.arg(n);
    fiche.Web = n == 7 ? QString(150, u'm') : u"web%1."_s.arg(n);
    attendu += fiche.NomVelmira + fiche.Ligne2 + u"SiteWeb:"_s + fiche.Web;
    return std::optional(fiche);
  };
  const auto imprimer = [&] {
    return ImprimerListe(imprimante_, {u"Paul"_s, 500, horloge_.Maintenant()}, {}, lire).fichier;
  };
  const QList<Page> pages = LirePages(std::async(std::launch::async, imprimer).get());
  ASSERT_GT(pages.size(), 1);
  for (const Page &page : pages) {
    double bas = 0;
    for (const Mot &mot : page.mots) {
      trouve += mot.texte;
      EXPECT_GE(mot.haut, kMarge - kTolerance) << qPrintable(mot.texte);
      EXPECT_LE(mot.droite, 210 - kMarge + kTolerance) << qPrintable(mot.texte);
      bas = std::max(bas, mot.bas);
    }
    EXPECT_NEAR(bas, 297 - kMarge - 2 * kLigne, &page == &pages.back() ? 297 : 2 * kLigne);
  }
  EXPECT_TRUE(trouve.contains(u"enregistrements"_s + attendu + u"Imprimé"_s)) << qPrintable(trouve);
  const Page &tete = pages.front(), &pied = pages.back();
  EXPECT_NEAR(tete(u"Velmiras"_s).gauche, kMarge, kTolerance);
  EXPECT_NEAR(tete(u"Velmiras"_s).haut, kMarge + kLigne, kTolerance);
  EXPECT_NEAR(tete(u"nom1."_s).haut, tete(u"nom0."_s).haut + 5 * kLigne, kTolerance);
  EXPECT_GT(pied(u"Imprimé"_s).haut, pied(u"web499."_s).haut + 3 * kLigne);
}

}  // namespace
