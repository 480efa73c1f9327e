// What commands have written is kept within its bounds, and taken back whole or not at all.

#include "Outils.h"
#include "storage/Historique.h"
#include "storage/Requete.h"

#include <vector>

namespace {

Etape DeTaille(const QString &nom, qsizetype octets) {
  return {.nom = nom, .masques = {}, .images = {QByteArray(octets, 'x')}, .fichiers = {}};
}

/// The names of the steps, the next one first, and of the command that was too large.
QString Vider(Historique &historique) {
  QStringList noms;
  while (const Etape *etape = historique.Prochaine(Historique::Sens::Annuler)) {
    noms.append(etape->nom);
    historique.Passer(Historique::Sens::Annuler, {});
  }
  return (noms + QStringList{historique.TropGrande()}).join(u' ');
}

}  // namespace

TEST(Historiques, Bornes) {
  Cas(R"(40 40 20 | 3 2 1 || 40 40 21 | 3 2 || 40 99 | 2 || 40 101 | 2 || 101 9 | 2)",
      [](Rangee c) {
        Historique historique(100);
        int n = 0;
        for (const QString &taille : c[0].split(u' '))
          historique.Ajouter(DeTaille(QString::number(++n), taille.toInt()));
        return Vider(historique).trimmed();
      });
  Historique historique;
  for (int i = 0; i < 25; ++i) historique.Ajouter(DeTaille(QString::number(i), 1));
  EXPECT_EQ(Vider(historique).split(u' ').size(), 21);
}

class Reprises : public DansUnDossier {};

TEST_F(Reprises, EntieresOuPas) {
  CreerBase(u"a"_s, {u"Luc"_s, u"Max"_s});
  Poser(u"un"_s, "avant");
  Base base;
  base.Ouvrir(Chemin(u"a"_s));
  {
    Acte acte(base, u"acte"_s);
    for (const QString &nom : {u"un"_s, u"d/deux"_s}) acte.Suivre(Chemin(nom), nom, true);
    for (const QString &nom : {u"Léa"_s, u"Noé"_s}) {  // the second one builds on the first
      Transaction transaction(base);
      Requete(base, u"UPDATE Adresse SET NomVelmira='%1' WHERE [Index]=1"_s.arg(nom)).Executer();
      transaction.Valider();
    }
    {
      const Transaction abandonnee(base);
      Requete(base, u"DELETE FROM Adresse WHERE [Index]=2"_s).Executer();
    }
    Poser(u"un"_s, "après");
    Poser(u"d/deux"_s, "après");
  }
  const Etape etape = *base.LHistorique().Prochaine(Historique::Sens::Annuler);
  const auto reprendre = [&](const Avance &avance) {
    const QString echec = Echec([&] { Reprendre(base, etape, {}, avance); });
    return echec + u'|' + Noms(u"a"_s) + u'|' + QString::fromUtf8(Octets(u"un"_s));
  };
  const auto sansArret = [](qsizetype, qsizetype) { return true; };
  EXPECT_EQ(reprendre([](qsizetype, qsizetype) { return false; }), u"|Noé Max|après"_s);
  QFile::remove(Chemin(u"d/deux"_s));
  QFile::link(Chemin(u"d/deux"_s), Chemin(u"d/deux"_s));  // cannot even be looked at
  EXPECT_TRUE(reprendre(sansArret).endsWith(u"|Noé Max|après"_s));
  QFile::remove(Chemin(u"d/deux"_s));
  Poser(u"d/deux"_s, "après");
  Sql(u"a"_s,
      u"CREATE TRIGGER t BEFORE UPDATE ON Adresse BEGIN SELECT RAISE(ROLLBACK, 'x'); END"_s);
  EXPECT_TRUE(reprendre(sansArret).endsWith(u"|Noé Max|après"_s));
  Sql(u"a"_s, u"DROP TRIGGER t"_s);
  EXPECT_EQ(reprendre(sansArret), u"|Luc Max|avant"_s);
  EXPECT_FALSE(Existe(u"d/deux"_s));
}
