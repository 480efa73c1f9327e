// When an event gives an alert, and the companions in the start list.

#include "Outils.h"
#include "alerts/Compagnons.h"
#include "alerts/Echeance.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kDelais = 32;

QDate Dans(int annee, int mois, int jour) {
  return {annee, mois, QDate::isValid(annee, mois, jour) ? jour : 28};
}

/// Days from today to the next day of this month and day, today included; 29 February is the 28th
/// in other years than leap ones.
qint64 JusquAuProchain(int mois, int jour, QDate aujourdhui) {
  int annee = aujourdhui.year();
  while (Dans(annee, mois, jour) < aujourdhui) ++annee;
  return aujourdhui.daysTo(Dans(annee, mois, jour));
}

/// Holds the rule against the plain definition, for all events and lead times: due when the next
/// such day is at most the lead time away.
void Comparer(QDate premier, QDate dernier) {
  int differences = 0;
  for (QDate jour = premier; jour <= dernier; jour = jour.addDays(1))
    for (QDate modele(2000, 1, 1); modele.year() == 2000; modele = modele.addDays(1)) {
      const QDate evenement = Dans(jour.year(), modele.month(), modele.day());
      const qint64 ecart = JusquAuProchain(modele.month(), modele.day(), jour);
      for (int delai = 0; delai < kDelais; ++delai) {
        const Echeance echeance = EcheanceAnnuelle(evenement, delai, jour);
        const bool due = ecart <= delai;
        if (echeance.Due() == due && (!due || echeance.EcartJours == ecart)) continue;
        if (++differences <= 10)
          ADD_FAILURE() << jour.toString(Qt::ISODate).toStdString() << ": event of "
                        << modele.toString(u"dd/MM"_s).toStdString() << ", lead time " << delai
                        << ", " << echeance.EcartJours << " for " << ecart << " days";
      }
    }
  EXPECT_EQ(differences, 0);
}

QDate Date(const QString &texte) {
  return QDate::fromString(texte, u"dd/MM/yyyy"_s);
}

Evenement Annuel(const QString &date, int delai) {
  return {.Date = date, .Annuel = true, .Delai = delai, .Actif = true};
}

}  // namespace

TEST(EcheanceTest, AnnuelleChaqueJour) {
  Comparer({1999, 1, 1}, {2001, 12, 31});
  Comparer({2023, 1, 1}, {2025, 12, 31});
}

TEST(EcheanceTest, AnnuelleAutourDesBornesDAnnee) {
  for (const int annee : {1900, 1904, 2096, 2100, 2400})
    Comparer({annee - 1, 11, 25}, {annee, 3, 10});
}

TEST(EcheanceTest, CasConnus) {
  struct Cas {
    QString date;
    int delai;
    QString jour;
    int ecart;
    bool due;
  };
  const Cas cas[] = {
      {u"05/01/1960"_s, 10, u"25/12/2026"_s, 11, false},
      {u"05/01/1960"_s, 10, u"26/12/2026"_s, 10, true},
      {u"05/01/1960"_s, 10, u"27/12/2026"_s, 9, true},
      {u"05/01/1960"_s, 10, u"03/01/2026"_s, 2, true},
      {u"05/01/1960"_s, 10, u"10/01/2026"_s, -5, false},
      {u"05/01/1960"_s, 10, u"11/01/2026"_s, -6, false},  // the last of the first days
      {u"05/01/1960"_s, 10, u"12/01/2026"_s, 358, false},
      {u"05/01/1960"_s, 10, u"12/01/2024"_s, -7, false},
      {u"05/01/1960"_s, 10, u"13/01/2024"_s, 358, false},
      {u"01/01/1960"_s, 31, u"15/12/2026"_s, 17, true},
      {u"01/01/1960"_s, 31, u"01/01/2026"_s, 0, true},
      {u"01/01/1960"_s, 31, u"02/01/2026"_s, -1, false},
      {u"15/06/2030"_s, 0, u"15/06/2026"_s, 0, true},  // the year does not count
      {u"15/06/2030"_s, 0, u"14/06/2026"_s, 1, false},
      {u"5/1/1960"_s, 10, u"27/12/2026"_s, 9, true},  // without leading zeros
      {u"29/02/2023"_s, 3, u"27/02/2024"_s, 2, true},
      {u"29/02/1960"_s, 3, u"01/03/2024"_s, -1, false},
      {u"29/02/2024"_s, 3, u"24/02/2026"_s, 4, false},
      {u"29/02/2023"_s, 3, u"25/02/2026"_s, 3, true},
      {u"29-2-1960"_s, 0, u"28/02/2100"_s, 0, true},
      {u"29/02/2024"_s, 3, u"01/03/2026"_s, -1, false},
  };
  for (const Cas &c : cas) {
    const auto echeance = EcheanceDe(Annuel(c.date, c.delai), Date(c.jour));
    ASSERT_TRUE(echeance);
    EXPECT_EQ(std::tuple(echeance->EcartJours, echeance->Due()), std::tuple(c.ecart, c.due))
        << c.date.toStdString() << " on " << c.jour.toStdString();
  }
  EXPECT_EQ(EcheanceDe(Annuel(u"05/01/1960"_s, 10), Date(u"27/12/2026"_s))->DebutAlerte,
            Date(u"26/12/2025"_s));
}

TEST(EcheanceTest, Ponctuelle) {
  const Evenement evenement{.Date = u"03/01/2026"_s, .Delai = 5, .Actif = true};
  for (const auto &[jour, ecart, due] : {std::tuple(u"28/12/2025"_s, 6, false),
                                         {u"29/12/2025"_s, 5, true},
                                         {u"03/01/2026"_s, 0, true},
                                         {u"04/01/2026"_s, -1, false},
                                         {u"01/01/2027"_s, -363, false},
                                         {u"29/12/2024"_s, 370, false}}) {
    const auto echeance = EcheanceDe(evenement, Date(jour));
    ASSERT_TRUE(echeance);
    EXPECT_EQ(std::tuple(echeance->EcartJours, echeance->Due()), std::tuple(ecart, due))
        << jour.toStdString();
  }
}

// What makes no sense hides nothing of the rest, before or behind it.
TEST(EcheanceTest, ToutesLesAlertes) {
  const auto alerte = [](const QString &date, bool annuel, bool actif = true) {
    EvenementJoint joint;
    joint.evenement = {.Date = date, .Annuel = annuel, .Delai = 5, .Actif = actif};
    joint.Nom = date;
    return joint;
  };
  QList<PersonneEvenements> personnes(2);
  personnes[0].evenements = {alerte(u"demain"_s, true), alerte(u"31/02/2026"_s, false),
                             alerte(u""_s, true), alerte(QString(), false),
                             alerte(u"rien"_s, true, false)};
  const auto chercher = [&] {
    const BilanAlertes bilan = ChercherAlertes(personnes, {2026, 6, 15});
    QStringList noms;
    for (const EvenementJoint &joint : bilan.sansDate) noms.append(joint.Nom);
    return noms.join(u'|') + (bilan.due ? u"|due"_s : u""_s);
  };
  EXPECT_EQ(chercher(), u"demain|31/02/2026"_s);
  personnes[1].evenements = {alerte(u"15/06/2026"_s, false, false), alerte(u"20/06/2019"_s, true),
                             alerte(u"5"_s, true), alerte(u"29/02/2027"_s, false)};
  EXPECT_EQ(chercher(), u"demain|31/02/2026|5|29/02/2027|due"_s);
}

TEST(CompagnonsTest, EntreesAuDemarrage) {
  struct Liste : ListeDemarrage {
    QStringList appels;
    void Ajouter(const QString &nom, const QString &programme, const QString &argument) override {
      appels << nom + u'=' + programme + u' ' + argument;
    }
    void Retirer(const QString &nom) override { appels << u'-' + nom; }
  } liste;
  for (const Compagnon compagnon : {Compagnon::Alertes, Compagnon::Memora}) {
    InscrireDemarrage(liste, u"/app"_s, compagnon);
    RetirerDemarrage(liste, compagnon);
  }
  EXPECT_EQ(liste.appels, (QStringList{u"Alerte=/app/Vigilo auto"_s, u"-Alerte"_s,
                                       u"Memora=/app/Memora auto"_s, u"-Memora"_s}));
}
