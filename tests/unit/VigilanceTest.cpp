// What the companions tell and keep: what is due, missed and seen; the notes.

#include "Outils.h"
#include "alerts/NotesMemora.h"
#include "alerts/Vigilance.h"
#include "directory/Liste.h"
#include "storage/EmplacementDonnees.h"

namespace {

QDate Date(const QString &texte) {
  return QDate::fromString(texte, u"dd/MM/yyyy"_s);
}

QList<PersonneEvenements> Un(Evenement evenement, const QString &ddn = {}) {
  evenement.ID = 7;
  evenement.Actif = true;
  return {{{1, u"X"_s, {}, true}, {{evenement, u"X"_s, ddn, u"Fête"_s}}}};
}

QString Dit(const QList<Alerte> &alertes) {
  QStringList mots;
  for (const Alerte &a : alertes)
    mots.append(a.jour.toString(u"dd/MM/yyyy "_s) + TexteEcart(a.dans) +
                (a.age ? u", "_s + TexteAgeAlerte(a) : u""_s));
  return mots.join(u" + "_s);
}

class Vigilances : public DansUnDossier {};

}  // namespace

// Event, lead time, when it was looked at before, today; what is due, what was missed.
TEST_F(Vigilances, DuesEtManquees) {
  Cas(R"(
    annuel 20/06/1960 | 5 | | 15/06/2026 | 20/06/2026 dans 5 jours, 66 ans / || annuel 20/06/1960 | 5 | | 21/06/2026 | /
    annuel 20/06/1960 | 5 | 18/06/2026 | 21/06/2026 | / 20/06/2026 hier, 66 ans || annuel 20/06/1960 | 5 | 20/06/2026 | 23/06/2026 | /
    annuel 03/01/1960 | 5 | 20/12/2026 | 30/12/2026 | 03/01/2027 dans 4 jours, 66 ans / || annuel 03/01/1960 | 5 | 20/12/2026 | 06/01/2027 | / 03/01/2027 il y a 3 jours, 66 ans
    annuel 30/12/1960 | 0 | 20/12/2026 | 02/01/2027 | / 30/12/2026 il y a 3 jours, 66 ans
    annuel 29/02/1960 | 1 | 01/02/2027 | 27/02/2027 | 28/02/2027 demain, 66 ans / || annuel 29/02/1960 | 1 | 01/02/2027 | 01/03/2027 | / 28/02/2027 hier, 66 ans
    annuel 29/02/1960 | 1 | 01/02/2028 | 01/03/2028 | / 29/02/2028 hier, 67 ans || annuel 20/06/1960 | 5 | 01/01/2020 | 19/06/2026 | 20/06/2026 demain, 66 ans / 20/06/2025 il y a 364 jours, 65 ans
    unique 20/06/2026 | 5 | 01/06/2026 | 20/06/2026 | 20/06/2026 aujourd'hui, 66 ans / || unique 20/06/2026 | 5 | 01/06/2026 | 22/06/2026 | / 20/06/2026 il y a 2 jours, 66 ans
    unique 02/01/2027 | 5 | | 30/12/2026 | 02/01/2027 dans 3 jours, 66 ans / || unique 30/12/2026 | 5 | 20/12/2026 | 02/01/2027 | / 30/12/2026 il y a 3 jours, 66 ans
    annuel 29/02/1960 | 1 | 01/02/2028 | 28/02/2028 | 29/02/2028 demain, 67 ans / || annuel 31/12/1960 | 1 | 31/12/2026 | 31/12/2026 | 31/12/2026 aujourd'hui, 66 ans /
    unique 31/02/2026 | 5 | 01/01/2026 | 05/03/2026 | /
  )",
      [this](Rangee c) {
        QFile::remove(Chemin(u"Vigilo.ini"_s));
        MemoireAlertes memoire(Chemin(), u"base"_s, u"paul"_s);
        if (!c[2].isEmpty()) memoire.NoterRegard(Date(c[2]));
        const auto personnes = Un({.Date = c[0].mid(7),
                                   .Annuel = c[0].startsWith(u"annuel"_s),
                                   .Age = true,
                                   .Delai = c[1].toInt()},
                                  u"20/06/1960"_s);
        const Vigilance v = Surveiller(personnes, memoire, Date(c[3]));
        return (Dit(v.dues) + u" / "_s + Dit(v.manquees)).trimmed();
      });
}

// What was seen comes back on the day alone, what was told is not missed; each user and base apart.
TEST_F(Vigilances, VuesEtDites) {
  const auto personnes = Un({.Date = u"20/06/1960"_s, .Annuel = true, .Delai = 9});
  const QDate jour = Date(u"20/06/2026"_s), avant = jour.addDays(-3);
  const auto memoire = [this](const QString &qui) {
    return MemoireAlertes(Chemin(), u"base"_s, qui);
  };
  const auto dues = [&](const QString &qui, QDate quand) {
    const Vigilance v = Surveiller(personnes, memoire(qui), quand);
    return u"%1 %2 %3"_s.arg(v.dues.size()).arg(v.manquees.size()).arg(v.vues);
  };
  for (const QString &qui : {u"paul"_s, u"zoé [x]"_s}) {
    MemoireAlertes m = memoire(qui);
    m.NoterRegard(avant);
    if (qui == u"paul"_s)
      m.NoterVue(7, jour, avant);
    else
      m.NoterDite(7, jour);
    m.Ecrire();
  }
  EXPECT_EQ(dues(u"paul"_s, avant), u"0 0 1"_s);
  EXPECT_EQ(dues(u"zoé [x]"_s, avant), u"1 0 0"_s);
  EXPECT_EQ(dues(u"paul"_s, jour), u"1 0 0"_s);
  for (const QString &qui : {u"paul"_s, u"zoé [x]"_s})
    EXPECT_EQ(dues(qui, jour.addDays(1)), u"0 0 0"_s);
  EXPECT_EQ(dues(u"autre"_s, jour.addDays(1)), u"0 0 0"_s);
  MemoireAlertes m = memoire(u"paul"_s);
  m.NoterVue(7, jour, jour);
  m.NoterRegard(avant.addDays(-9));  // a clock that was put back
  EXPECT_EQ(m.Regarde(), avant);
  m.Ecrire();
  EXPECT_EQ(dues(u"paul"_s, jour), u"0 0 1"_s);
}

TEST_F(Vigilances, LesCachesSontTus) {
  CreerBase(u"b"_s);
  Sql(u"b"_s,
      u"INSERT INTO Adresse (NomVelmira,DataProt) VALUES ('Zoé','anne'),('Luc','anne'),('Luc',''),('Paul','paul')"_s);
  Sql(u"b"_s,
      u"INSERT INTO Listecoal (Nom,Disponible) VALUES ('ZOÉ',1),('Luc',1),('Paul',1),('Hors liste',1),('Parti',0)"_s);
  Base base;
  base.Ouvrir(Chemin(u"b"_s));
  QStringList noms;
  for (const auto &p : PersonnesVisibles(base, u"paul"_s)) noms.append(p.personne.Nom);
  EXPECT_EQ(noms.join(u' '), u"Luc Paul Hors liste"_s);
  Cas("1 | || 3 | 3 || luc | 3 || Zoé | || ·PAUL· | 4 || 4 | 4 || 99 | || | ", [&](Rangee c) {
    QStringList cles;
    for (const Cle cle : FichesDemandees(TableAdresse(base), c[0], u"paul"_s))
      cles.append(QString::number(cle));
    return cles.join(u' ');
  });
}

// Nothing is told of a base that is not there, and the failure of one that is not ours or is
// locked.
TEST_F(Vigilances, BaseDuPoste) {
  EXPECT_EQ(LireEvenements(Chemin(), u"paul"_s).base, u""_s);
  const QString donnees = Chemin(u"DataTrevona/DataVelmira"_s);
  EcrireCheminData(Chemin(), donnees);
  EXPECT_EQ(LireEvenements(Chemin(), u"paul"_s).base, u""_s);
  CreerBase(u"DataTrevona/DataVelmira/Velmira.mdb"_s, {u"Zoé"_s});
  EXPECT_EQ(LireEvenements(Chemin(), u"paul"_s).base, FichierBase(donnees));
  Poser(u"DataTrevona/DataVelmira/Velmira.mdb"_s, "autre chose");
  EXPECT_FALSE(Echec([&] { LireEvenements(Chemin(), u"paul"_s); }).isEmpty());
}

// Event, lead time, today; the line of the next thirty days, with a star where it is due.
TEST_F(Vigilances, Prochaines) {
  Cas(R"(
    20/01/1960 | 2 | 25/12/2026 | mer. 20/01 - X - Fête || 25/01/1960 | 31 | 25/12/2026 | lun. 25/01 - X - Fête * || 25/01/1960 | 2 | 25/12/2026 |
    26/12/1960 | 0 | 25/12/2026 | demain - X - Fête || 24/12/1960 | 31 | 25/12/2026 |
  )",
      [](Rangee c) {
        const auto a = ProchainesAlertes(Un({.Date = c[0], .Annuel = true, .Delai = c[1].toInt()}),
                                         Date(c[2]), 30);
        if (a.isEmpty()) return u""_s;
        return LigneAlerte(a[0], QLocale(QLocale::French)).replace(u'·', u'-') +
               (a[0].due ? u" *"_s : u""_s);
      });
}

// Three notes at most; what is changed stands in the file at once; a file of something else stays.
TEST_F(Vigilances, Notes) {
  NoteMemora b;
  {
    NotesMemora notes(Chemin());
    const NoteMemora a = notes.Ajouter();
    b = notes.Ajouter();
    b.texte = u"Œufs 🥚\n\"lait\""_s;
    b.place = {-30, 40, 200, 150};
    b.couleur = u"#ffc0cb"_s;
    b.points = 20;
    b.montree = false;
    notes.Changer(b);
    notes.Supprimer(a.numero);
    EXPECT_EQ(NotesMemora(Chemin()).Notes().size(), 1);
    EXPECT_EQ(notes.Rendre(), a);
    EXPECT_FALSE(notes.PeutRendre());
    notes.Ajouter();
    EXPECT_FALSE(notes.PeutAjouter());
  }
  EXPECT_TRUE(NotesMemora(Chemin()).Notes().contains([&] {
    NoteMemora n = b;
    n.numero = 1;
    return n;
  }()));
  Poser(u"MemoraNotes.json"_s, "[{\"couleur\":\"rouge\",\"points\":9000},7,{},{},{}]");
  EXPECT_EQ(NotesMemora(Chemin()).Notes().size(), 3);
  EXPECT_EQ(NotesMemora(Chemin()).Notes()[0].points, 72);
  Poser(u"MemoraNotes.json"_s, "{ coup");
  NotesMemora notes(Chemin());
  EXPECT_EQ(notes.Notes().size(), 0);
  EXPECT_EQ(Octets(u"MemoraNotes.json.illisible"_s), "{ coup");
  EXPECT_EQ(notes.Ecarte(), Chemin(u"MemoraNotes.json.illisible"_s));
  const NoteMemora a = notes.Ajouter();
  QFile::remove(Chemin(u"MemoraNotes.json"_s));
  QDir().mkdir(Chemin(u"MemoraNotes.json"_s));  // which no file can replace
  EXPECT_FALSE(Echec([&] { notes.Supprimer(a.numero); }).isEmpty());
  EXPECT_FALSE(Echec([&] { notes.Ajouter(); }).isEmpty());
  EXPECT_TRUE(notes.Notes() == QList{a} && !notes.PeutRendre());
  QDir().rmdir(Chemin(u"MemoraNotes.json"_s));
  notes.Changer(a);
  EXPECT_EQ(NotesMemora(Chemin()).Notes(), QList{a});
}
