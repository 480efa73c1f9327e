// Days: Easter, the name days, and when an event is due.

#include "Outils.h"
#include "alerts/Echeance.h"
#include "calendar/Anniversaires.h"
#include "calendar/Fetes.h"
#include "calendar/JoursFeries.h"
#include "platform/PageDeCode.h"

static QDate Date(const QString &texte) {
  return QDate::fromString(texte, u"dd/MM/yyyy"_s);
}

TEST(Calendrier, Paques) {
  Cas(R"(22/03/1598 || 25/04/1886 || 23/03/1913 || 18/04/1954 || 19/04/1981 || 18/04/2049
         19/04/2076 || 23/04/2000 || 24/04/2011 || 31/03/2024 || 05/04/2026 || 22/03/2285)",
      [](Rangee c) { return Paques(Date(c[0]).year()).toString(u"dd/MM/yyyy"_s); });
  for (const int annee : {-1, 0, 1, 9999}) EXPECT_EQ(JoursFeries(annee).size(), annee > 0 ? 13 : 0);
}

// A name is sought as a whole; nothing is found behind a line that is cut short.
TEST(Calendrier, Prenoms) {
  const auto saints = LireSaints(
      VersPageDeCode(u"|0107---St(e) Jean-Baptiste|\r\n|2712---St(e) Éloi - Jean|\n|0405---\r\n"
                     "|0505---St(e) Trop tard|\r\n"_s));
  Cas("Jean | 2712 || jean-baptiste | 0107 || eloi | 2712 || Jea | || ·Jean | || Trop tard |",
      [&](Rangee c) {
        const auto fete = ChercherFete(saints, c[0]);
        return fete ? fete->ligne.jour + fete->ligne.mois : u""_s;
      });
}

// Event, lead time, today; days to go, whether it is due. Of a yearly one the year says nothing.
TEST(Calendrier, Echeances) {
  Cas(R"(
    annuel | 05/01/1960 | 10 | 01/01/2024 | 4 oui || annuel | 05/01/1960 | 10 | 11/01/2026 | -6 non
    annuel | 05/01/1960 | 10 | 12/01/2026 | 358 non || annuel | 05/01/1960 | 10 | 12/01/2024 | -7 non
    annuel | 05/01/1960 | 10 | 25/12/2026 | 11 non || annuel | 5/1/1960 | 10 | 27/12/2026 | 9 oui
    annuel | 11/01/1960 | 10 | 25/12/2026 | -348 non || annuel | 05/01/1960 | 31 | 05/12/2026 | 31 oui
    annuel | 29/02/2023 | 3 | 27/02/2024 | 2 oui || annuel | 29/02/1960 | 3 | 01/03/2024 | -1 non
    annuel | 29-2-1960 | 0 | 28/02/2100 | 0 oui || unique | 31/02/2026 | 5 | 01/01/2026 | sans date
    unique | 03/01/2026 | 5 | 28/12/2025 | 6 non || unique | 03/01/2026 | 5 | 29/12/2025 | 5 oui
    unique | 03/01/2026 | 5 | 03/01/2026 | 0 oui || unique | 03/01/2026 | 5 | 04/01/2026 | -1 non
  )",
      [](Rangee c) {
        QList<PersonneEvenements> personnes(1);
        personnes[0].evenements.resize(2);
        Evenement &e = personnes[0].evenements[0].evenement;
        e = {.Date = c[1], .Annuel = c[0] == u"annuel"_s, .Delai = c[2].toInt(), .Actif = true};
        const auto echeance = EcheanceDe(e, Date(c[3]));
        const BilanAlertes bilan = ChercherAlertes(personnes, Date(c[3]));
        EXPECT_EQ(bilan.sansDate.size(), echeance ? 0 : 1);
        EXPECT_EQ(bilan.due, echeance && echeance->Due());
        e.Actif = false;
        EXPECT_FALSE(ChercherAlertes(personnes, Date(c[3])).due);
        return echeance ? QString::number(echeance->EcartJours) + u' ' + OuiNon(echeance->Due())
                        : u"sans date"_s;
      });
}

// Birth, today; the line of the foot and of the record. An alert of thirty days is due for the
// same.
TEST(Calendrier, Anniversaires) {
  const QLocale langue(QLocale::French, QLocale::France);
  Cas(R"(
    20/06/1960 | 15/06/2026 | sam. 20/06 · X · 66 ans, 66 ans le 20 juin, dans 5 jours
    01/06/2025 | 31/05/2026 | demain · X · 1 an, 1 an demain || 01/06/1925 | 01/06/2026 | aujourd'hui · X · 101 ans, 101 ans aujourd'hui
    01/01/1950 | 02/12/2026 | ven. 01/01 · X · 77 ans, 77 ans le 1er janvier, dans 30 jours
    01/01/1950 | 01/12/2026 | ven. 01/01 · X · 77 ans, 77 ans le 1er janvier
    29/02/1960 | 01/02/2027 | dim. 28/02 · X · 67 ans, 67 ans le 28 février, dans 27 jours
    29/02/1960 | 01/02/2028 | mar. 29/02 · X · 68 ans, 68 ans le 29 février, dans 28 jours
    14/06/1960 | 15/06/2026 | lun. 14/06 · X · 67 ans, 67 ans le 14 juin
    15/06/2026 | 15/06/2026 | || 16/06/2026 | 15/06/2026 | || 31/04/1960 | 15/06/2026 | || vers 1950 | 15/06/2026 |
  )",
      [&](Rangee c) {
        const auto prochain = ProchainAnniversaire(c[0], Date(c[1]));
        if (!prochain) return u""_s;
        EXPECT_EQ(EcheanceDe({.Date = c[0], .Annuel = true, .Delai = 30}, Date(c[1]))->Due(),
                  prochain->dans <= 30);
        QString ligne = LigneAnniversaire(*prochain, u"X"_s, true, langue);
        return ligne.replace(u'·', u' ') + u", "_s + TexteAVenir(*prochain, langue);
      });
}
