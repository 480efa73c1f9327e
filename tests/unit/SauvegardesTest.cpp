// Which of the copies of a base go.

#include "Outils.h"
#include "storage/Sauvegardes.h"

#include <QDateTime>

class LesSauvegardes : public DansUnDossier {
 protected:
  QStringList Restees() const {
    return QDir(Chemin(u"Sauvegardes"_s)).entryList(QDir::Files | QDir::Hidden, QDir::Name);
  }
};

// Of each day of a year and a half, two of the last one.
TEST_F(LesSauvegardes, Eclaircies) {
  const QDateTime maintenant(QDate(2026, 6, 15), QTime(10, 0));
  const auto nom = [](QDate jour) {
    return u"Velmira_"_s + jour.toString(Qt::ISODate) + u".mdb"_s;
  };
  for (QDate jour(2025, 1, 1); jour <= maintenant.date(); jour = jour.addDays(1))
    Poser(u"Sauvegardes/"_s + nom(jour), "copie");
  const QStringList autres{u".velmira-0123456789abc"_s, u"Velmira_2026-06-15_09-30-00_import.mdb"_s,
                           u"Velmira_2026-13-15.mdb"_s, u"à moi.mdb"_s};
  for (const QString &autre : autres) Poser(u"Sauvegardes/"_s + autre, "autre");
  EntretenirSauvegardes(Chemin(u"Sauvegardes"_s), maintenant);
  QStringList attendues = autres;
  for (const int jours : {0, 1, 2, 3, 4, 5, 6, 8, 15})
    attendues.append(nom(maintenant.date().addDays(-jours)));
  for (int mois = 2; mois < 12; ++mois)  // the last days of months; that of May has been told
    attendues.append(nom(QDate(2026, 6, 1).addMonths(1 - mois).addDays(-1)));
  attendues.removeDuplicates();
  attendues.sort();
  EXPECT_EQ(Restees(), attendues);
  const auto restees = ListerSauvegardes(Chemin(u"Sauvegardes"_s));
  EXPECT_TRUE(restees.constFirst().motif == MotifSauvegarde::Import &&
              Superflues(restees).isEmpty());
}

// A base that makes no sense is none to be kept, but for one that is to be replaced; of a day one
// copy is made.
TEST_F(LesSauvegardes, Faites) {
  CreerBase(u"a.mdb"_s, {u"Luc"_s});
  const LieuxSauvegardes lieux{Chemin(u"a.mdb"_s), {}};
  const QDateTime maintenant(QDate(2026, 6, 15), QTime(10, 0));
  const auto faire = [&](MotifSauvegarde motif) {
    QString chemin;
    const QString echec = Echec([&] { chemin = Sauvegarder(lieux, maintenant, motif).chemin; });
    return echec.isEmpty() ? QFileInfo(chemin).fileName() : u"échec"_s;
  };
  EXPECT_EQ(faire(MotifSauvegarde::Jour), u"Velmira_2026-06-15.mdb"_s);
  EXPECT_EQ(faire(MotifSauvegarde::Jour), u""_s);
  EXPECT_EQ(Noms(u"Sauvegardes/Velmira_2026-06-15.mdb"_s), u"Luc"_s);
  QByteArray abimee = Octets(u"a.mdb"_s);
  Poser(u"a.mdb"_s, abimee.replace(8192, 4096, QByteArray(4096, 'x')));
  EXPECT_EQ(faire(MotifSauvegarde::Import), u"échec"_s);
  EXPECT_EQ(faire(MotifSauvegarde::MiseAJour), u"Velmira_2026-06-15_10-00-00_mise-a-jour.mdb"_s);
  EXPECT_EQ(Octets(u"Sauvegardes/Velmira_2026-06-15_10-00-00_mise-a-jour.mdb"_s), abimee);
  EXPECT_EQ(Restees().size(), 2);
}
