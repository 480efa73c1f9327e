// The search in all that the records hold.

#include "Outils.h"
#include "directory/Categories.h"
#include "directory/RechercheTotale.h"

namespace {

class Recherche : public DansUnDossier {};

TEST_F(Recherche, ToutCeQueTiennentLesFiches) {
  CreerBase(u"a"_s);
  Base base;
  base.Ouvrir(Chemin(u"a"_s));
  Cas(R"(
    Anne Ledoux | 12 allée des Hêtres, bât. 06 | Nantes | 44000 | 02 40 11 22 33 | a.ledoux@poste.fr | |
    Hélène Nantes | | Lyon | 69000 | +33 6.12.34.56.78 | | Aime l'opéra·et·le·vélo,·ne·mange·pas·d'œufs |
    Jean-Noël d’Œuvre | rue Vélo | | | | | | *Amis*
    Lenoël Nantes | | Brest | 29 200 | 0033 (0)6 99 | | vélo Hélène |
    Cachée | | Nantes | 44000 | | | | secret
  )",
      [&](Rangee c) {
        Correspondant fiche;
        fiche.NomVelmira = c[0];
        fiche.Ligne3 = c[1];
        fiche.Ville = c[2];
        fiche.CodePostal = c[3];
        fiche.Tel = c[4];
        fiche.Mail = c[5];
        fiche.Commentaires = c[6];
        fiche.Categories = c[7] == u"secret"_s ? u""_s : c[7];
        fiche.DataProt = c[7] == u"secret"_s ? u"Marie"_s : u""_s;
        AjouterLigne(base, fiche);
      });
  RechercheTotale recherche(base, u"Paul"_s);
  // The names found, each with what is said below it, the words in brackets; then those of the
  // category "Amis" alone.
  Cas(R"(
    helene | Hélène Nantes (Lyon); Lenoël Nantes (Notes : vélo [Hélène]); |
    noel | Jean-Noël d’Œuvre; Lenoël Nantes (Brest); | Jean-Noël d’Œuvre;
    nan | Hélène Nantes (Lyon); Lenoël Nantes (Brest); Anne Ledoux (Ville : [Nan]tes); |
    NANTES hêtre | Anne Ledoux (Ville : [Nantes]); |
    oeu | Jean-Noël d’Œuvre; Hélène Nantes (Notes : … d'[œu]fs); | Jean-Noël d’Œuvre;
    d oeuvre, jean | Jean-Noël d’Œuvre; | Jean-Noël d’Œuvre;
    velo | Jean-Noël d’Œuvre (Adresse : rue [Vélo]); Hélène Nantes (Notes : … [vélo], ne mange pas d'œufs); Lenoël Nantes (Notes : [vélo] Hélène); | Jean-Noël d’Œuvre (Adresse : rue [Vélo]);
    0612 | Hélène Nantes (Tél. : +33 [6.12].34.56.78); |
    06 12 | Hélène Nantes (Tél. : +33 [6.12].34.56.78); Anne Ledoux (Adresse : [12] allée des Hêtres, bât. [06]); |
    06-12 34 | Hélène Nantes (Tél. : +33 [6.12.34].56.78); |
    06 99 | Lenoël Nantes (Tél. : 0033 ([0)6 99]); |
    69 | Hélène Nantes (Code postal : [69]000); Lenoël Nantes (Tél. : 0033 (0)[6 9]9); |
    ledoux@ | Anne Ledoux (E-mail : a.[ledoux@]poste.fr); |
    amis | Jean-Noël d’Œuvre (Catégorie : [Amis]); | Jean-Noël d’Œuvre (Catégorie : [Amis]);
    amiss | | || secret | | || - | | || nan | Hélène Nantes (Lyon); Lenoël Nantes (Brest); Anne Ledoux (Ville : [Nan]tes); |
  )",
      [&](Rangee c) {
        const auto trouver = [&](const QString &categorie) {
          QString noms;
          for (const auto &[nom, cle] : recherche.Chercher(c[0], {categorie, {}, {}})) {
            auto [precision, trouves] = recherche.Precision(cle, c[0]);
            while (!trouves.isEmpty()) {
              const auto [debut, longueur] = trouves.takeLast();
              precision.insert(debut + longueur, u']').insert(debut, u'[');
            }
            noms += nom + (precision.isEmpty() ? precision : u" (%1)"_s.arg(precision)) + u';';
          }
          return noms.replace(u";"_s, u"; "_s).trimmed();
        };
        EXPECT_EQ(trouver(ToutesCategories()), c[1]);
        EXPECT_EQ(trouver(u"Amis"_s), c[2]);
      });
}

// Of more than are given, those with the word in the name come first, wherever they stand in the
// list.
TEST_F(Recherche, TropDeFiches) {
  CreerBase(u"a"_s);
  Sql(u"a"_s,
      u"WITH s(i) AS (VALUES(1) UNION ALL SELECT i+1 FROM s WHERE i<1200) INSERT INTO Adresse "
      "(NomVelmira, Commentaires, DataProt) SELECT 'A'||i, 'lilas', '' FROM s"_s);
  Sql(u"a"_s, u"UPDATE Adresse SET NomVelmira='Zoé Lilas' WHERE [Index]=7"_s);
  Base base;
  base.Ouvrir(Chemin(u"a"_s));
  RechercheTotale recherche(base, u"Paul"_s);
  for (const QString &saisie : {u"li"_s, u"lilas"_s}) {
    const auto trouves = recherche.Chercher(saisie, {ToutesCategories(), {}, {}});
    EXPECT_EQ(trouves.size(), RechercheTotale::kLimite);
    EXPECT_EQ(trouves.front().texte, u"Zoé Lilas"_s);
  }
  EXPECT_EQ(recherche.Chercher(u"lilas a1200"_s, {ToutesCategories(), {}, {}}).size(), 1U);
}

}  // namespace
