// Older databases in the Jet format: what their reader hands over, and what becomes of it. The
// databases lie where VELMIRA_JET says, with their tables as comma-separated values in csv/NAME.

#include "Outils.h"
#include "app/Demarrage.h"
#include "app/Sauvan.h"
#include "commun/BoitesMuettes.h"
#include "storage/EmplacementDonnees.h"
#include "storage/MiseAJour.h"
#include "storage/SourceJet.h"
#include "storage/SourceSqlite.h"
#include "storage/TransfertBase.h"

#include <QElapsedTimer>
#include <QRegularExpression>
#include <QtEndian>

#include <algorithm>

namespace {

QByteArray Trame(char genre, const QByteArray &corps, int plus = 0) {
  QByteArray longueur(4, '\0');
  qToBigEndian(static_cast<quint32>(corps.size() + plus), longueur.data());
  return genre + longueur + corps;
}

/// Its first word is the frames: A; T with columns and rows claimed; L with a field for each letter
/// (n null, e empty, t "é", 7 a number, i unreadable); F, ! where damaged. `+` claims a byte more.
QByteArray Flux(const QString &mots) {
  QByteArray flux;
  for (const QString &mot : mots.split(u' ', Qt::SkipEmptyParts)) {
    QByteArray corps;
    for (const QChar c : mot.sliced(1)) {
      if (mot[0] == u'T') corps += corps.isEmpty() ? '\0' : char(0), corps += char(c.digitValue());
      if (c == u'n') corps += '\0';
      if (c == u'e') corps += QByteArray("\1\0\0\0\0", 5);
      if (c == u't') corps += QByteArray("\1\0\0\0\2\xc3\xa9", 7);
      if (c == u'7') corps += QByteArray("\2\xff\xff\xff\xff\xff\xff\xff\xf9", 9);
      if (c == u'i') corps += '\3';
      if (c == u'?') corps += '\4';
    }
    if (mot[0] == u'T') corps.insert(2, QByteArray(2, '\0'));
    if (mot[0] == u'F') corps = QByteArray(1, mot.contains(u'!') ? '\1' : '\0');
    flux += Trame(mot[0].toLatin1(), corps, mot.endsWith(u'+') ? 1 : 0);
  }
  return flux;
}

/// As a statement has it.
QString Litteral(const QVariant &champ) {
  if (champ.isNull()) return u"NULL"_s;
  if (champ.typeId() != QMetaType::QString) return champ.toString();
  return u'\'' + champ.toString().replace(u'\'', u"''"_s) + u'\'';
}

/// Answers every question with `reponse`, and notes what is asked and told.
class BoitesNotees : public BoitesMuettes {
 public:
  explicit BoitesNotees(Reponse reponse) : reponse_(reponse) {}
  void Message(Genre, const QString &, const QString &texte) override { vues.append(texte); }
  Reponse Question(const QString &, const QString &texte, Reponse) override {
    vues.append(texte);
    return reponse_;
  }

 private:
  Reponse reponse_;
};

class Jet : public DansUnDossier {
 protected:
  static QString Exemple(const QString &nom) {
    return qEnvironmentVariable("VELMIRA_JET") + u'/' + nom;
  }
  /// Starts on a copy of a sample as the user's own base, without a delivered one; what is shown.
  QStringList Demarrer(const QByteArray &octets, Boites::Reponse reponse = Boites::Reponse::Non) {
    const QString app = Chemin(u"app"_s), data = Chemin(u"DataVelmira"_s);
    QDir(data).removeRecursively();
    Poser(u"app/Liaison.cfg"_s, "\" \",\" - \"\r\n");
    Poser(u"DataVelmira/Velmira.mdb"_s, octets);
    EcrireCheminData(app, data);
    Dossiers dossiers{app, {}, {}, {}};
    BoitesNotees boites(reponse);
    Demarrage(boites, dossiers, {[](const QString &) {}}).Executer();
    return boites.vues;
  }
  /// Takes a sample into the base `reprise`: how it ends and what is told.
  QString Sauvan(const QString &nom) const {
    const DemandeSauvan demande{
        .base = Chemin(u"reprise"_s),
        .fichiers = {QDir(qEnvironmentVariable("VELMIRA_JET")).filePath(nom)}};
    const auto fin = ReprendreSansFenetre(demande, Chemin(u"app"_s), u"moi"_s,
                                          QDateTime(QDate(2026, 3, 1), QTime(9, 0)));
    return u"%1 %2"_s.arg(fin.statut).arg(fin.texte);
  }
  static QByteArray Lire(const QString &nom) {
    QFile fichier(Exemple(nom));
    return fichier.open(QIODevice::ReadOnly) ? fichier.readAll() : QByteArray();
  }
  QStringList Tout(const QString &base) const {
    QStringList tout;
    PourChaqueTable(
        [&]<typename L>(Table<L> table) { tout += Sql(base, u"SELECT * FROM "_s + Nom(table)); });
    return tout;
  }
  QString Lecteur(const QByteArray &script) {
    Poser(u"lecteur"_s, "#!/bin/sh\n" + script);
    QFile::setPermissions(Chemin(u"lecteur"_s), QFile::ReadOwner | QFile::ExeOwner);
    return Chemin(u"lecteur"_s);
  }
};

/// The rows of a file of comma-separated values in the order of the numbers in front, as a
/// statement has them: a text stands in quotes, and nothing between the commas is null.
QStringList Lignes(const QString &chemin) {
  QFile fichier(chemin);
  if (!fichier.open(QIODevice::ReadOnly)) return {u"(no file)"_s};
  const QString texte = QString::fromUtf8(fichier.readAll());
  QMultiMap<qint64, QString> lignes;
  QStringList champs;
  for (qsizetype i = texte.indexOf(u'\n') + 1; i < texte.size(); ++i) {
    QString champ;
    if (texte[i] == u'"') {
      for (++i; texte[i] != u'"' || texte[i + 1] == u'"'; ++i) {
        if (texte[i] == u'"') ++i;
        champ += texte[i];
      }
      champ = Litteral(u""_s + champ);
      ++i;
    } else {
      for (; texte[i] != u',' && texte[i] != u'\n'; ++i) champ += texte[i];
      if (champ.isEmpty()) champ = u"NULL"_s;
    }
    champs.append(champ);
    if (texte[i] == u',') continue;
    lignes.insert(champs[0].toLongLong(), champs.join(u','));
    champs.clear();
  }
  return lignes.values();
}

}  // namespace

// Frames, in one piece and byte by byte | what of them is believed. "." is where they are cut.
TEST_F(Jet, Trames) {
  Cas(R"(
    A | absente entière || T11 Ln Le F | NULL '' entière || T21 Lt7 F | 'é',-7 entière || T10 F | entière
    T12 Ln F | NULL || T11 Li F | NULL 1 || T11 Ln F! | NULL || T11 Ln | NULL coupée || | coupée
    T11 Ln+ F | refusée || T11 L? F | refusée || T11 Lnn F | refusée || T21 Ln F | refusée
    Ln | refusée || F | refusée || A A | refusée || T11 T11 | refusée || T01 | refusée || X | refusée
    T11 Ln F Ln | NULL refusée || A F | refusée || T19 F | || T11 Lt+ | coupée
  )",
      [](Rangee c) {
        QString resultat;
        for (const qsizetype pas : {qsizetype{1000}, qsizetype{1}}) {
          TableJet table(10'000);
          bool juste = true;
          const QByteArray flux = Flux(c[0]);
          for (qsizetype i = 0; i < flux.size(); i += pas) juste = table.Ajouter(flux.mid(i, pas));
          QStringList mots;
          for (qsizetype i = 0; i < table.Lignes(); ++i) {
            QStringList champs;
            for (const QVariant &champ : table.Ligne(i)) champs.append(Litteral(champ));
            mots.append(champs.join(u','));
          }
          if (table.Illisibles() > 0) mots.append(QString::number(table.Illisibles()));
          if (table.Absente() && juste) mots.append(u"absente"_s);
          if (table.Entiere()) mots.append(u"entière"_s);
          if (!juste) mots.append(u"refusée"_s);
          if (juste && !table.Finie()) mots.append(u"coupée"_s);
          if (pas > 1) resultat = mots.join(u' ');
          EXPECT_EQ(mots.join(u' '), resultat);
        }
        return resultat;
      });
  TableJet petite(1000);
  EXPECT_FALSE(petite.Ajouter(Trame('T', QByteArray(2000, 'x'))) || !petite.TropGrande());
  TableJet milliers(1000);
  EXPECT_FALSE(milliers.Ajouter(Flux(u"T11"_s + u" Ln"_s.repeated(100)))) << "rows cost too";
}

// A reader that goes astray in any way ends in words, and soon.
TEST_F(Jet, LecteurEgare) {
  Poser(u"base"_s, "....Standard Jet DB....");
  QElapsedTimer temps;
  temps.start();
  Cas(R"(
    exit·3 | endommagé || kill·-9·$$ | endommagé || echo·T0000xxxxx | trop de données || : | endommagé
    sleep·60 | 0 secondes || printf·'A\0\0\0\0';sleep·60 | pas de table || yes·T | trop de données
    printf·'A\0\0\0\0' | pas de table Adresse || cat | endommagé
  )",
      [this](Rangee c) {
        const LimitesJet limites{std::chrono::milliseconds(300), 10'000,
                                 Lecteur(c[0].toUtf8() + '\n')};
        const QString echec = Echec([&] { SourceJet(Chemin(u"base"_s), limites); });
        return echec.contains(c[1]) ? c[1] : echec;
      });
  EXPECT_LT(temps.elapsed(), 20'000);
  const LimitesJet sans{std::chrono::seconds(1), 1000, Chemin(u"rien"_s)};
  EXPECT_TRUE(Echec([&] { SourceJet(Chemin(u"base"_s), sans); }).contains(u"velmira-jet"));
  // The real one, and a file that is nothing but its head.
  EXPECT_TRUE(Echec([&] { SourceJet(Chemin(u"base"_s)); }).contains(u"endommagé"));
  EXPECT_TRUE(EstJet(Chemin(u"base"_s)) && !EstJet(Chemin(u"lecteur"_s)) && !EstJet(Chemin()));
}

// Every field of the sound samples.
TEST_F(Jet, ExemplesSains) {
  if (!qEnvironmentVariableIsSet("VELMIRA_JET")) GTEST_SKIP() << "VELMIRA_JET names no folder";
  Cas("petit || evolue || ancien || vide || protege || jet3 || jet3-ancien", [](Rangee c) {
    SourceJet source(Exemple(c[0] + u".mdb"_s));
    EXPECT_TRUE(source.Entiere()) << source.Constat().toStdString();
    PourChaqueTable([&]<typename L>(Table<L>) {
      const QString nom = QString::fromUtf16(Table<L>::nom);
      ASSERT_TRUE(source.Ouvrir(nom));
      QStringList lignes;
      while (source.Suivante()) {
        QStringList champs;
        for (int i = 0; const auto champ = source.Champ(i); ++i) champs.append(Litteral(*champ));
        lignes.append(champs.join(u','));
      }
      EXPECT_EQ(lignes, Lignes(Exemple(u"csv/%1/%2.csv"_s.arg(c[0], nom)))) << nom.toStdString();
    });
    return c[0];
  });
}

// The same rows become the same, whichever format they lay in; a start upgrades them by itself.
TEST_F(Jet, MiseAJourDesExemples) {
  if (!qEnvironmentVariableIsSet("VELMIRA_JET")) GTEST_SKIP() << "VELMIRA_JET names no folder";
  Cas(R"(
    petit | 0 25 3 6 3 1 4 2 5 DU14/07 ŒU04/10 || evolue | 0 27 6 3 1 1 8 || vide | 0
    ancien | 0 25 6 3 2 5 3 4 DU14/07 ŒU04/10 Ta31/12 || jet3 | 0 25 3 6 3 1 4 2 5 DU14/07 ŒU04/10
    protege | 0 25 3 6 3 1 4 2 5 DU14/07 ŒU04/10 || jet3-ancien | 0 25 6 3 2 5 3 4 DU14/07 ŒU04/10 Ta31/12
  )",
      [this](Rangee c) {
        const QMap<QString, int> colonnes{
            {u"Adresse"_s, 24}, {u"Alerte"_s, 2}, {u"Listecoal"_s, 3}, {u"ListeAlerte"_s, 6}};
        CreerBaseAncienne(Chemin(u"ancien"_s),
                          c[0].contains(u"ancien") ? colonnes : QMap<QString, int>());
        PourChaqueTable([&](auto table) {
          const QString nom = Nom(table);
          for (const QString &ligne :
               Lignes(Exemple(u"csv/%1/%2.csv"_s.arg(c[0], nom.sliced(1).chopped(1)))))
            Sql(u"ancien"_s, u"INSERT INTO %1 VALUES (%2)"_s.arg(nom, ligne));
        });
        SourceSqlite source(Chemin(u"ancien"_s));
        ConvertirBase(source, Chemin(u"attendu"_s), {u" "_s, 7}, [](qsizetype) {});
        Poser(u"app/Alarme.ini"_s, "7,1,0,1,2\r\n");
        const QStringList vues = Demarrer(Lire(c[0] + u".mdb"_s));
        EXPECT_EQ(vues.constLast(), u"Mise à jour de la base terminée."_s);
        EXPECT_EQ(Tout(u"DataVelmira/Velmira.mdb"_s), Tout(u"attendu"_s));
        EXPECT_EQ(Octets(u"DataVelmira/Ancien_Velmira.mdb"_s), Lire(c[0] + u".mdb"_s));
        EXPECT_FALSE(Existe(u"DataVelmira/Velmira_base.mdb"_s));
        // A transfer makes the same of it, over a base and over nothing.
        SourceJet jet(Exemple(c[0] + u".mdb"_s));
        CreerBase(u"cible"_s, {u"Luc"_s});
        for (const QString &cible : {u"cible"_s, u"neuve"_s}) {
          TransfererBaseJet(jet, Chemin(cible), {u" "_s, 7});
          EXPECT_EQ(Tout(cible), Tout(u"attendu"_s));
        }
        QFile::remove(Chemin(u"neuve"_s));
        // A taking over adds the same to what is there, once; a row without a name gets one.
        CreerBase(u"reprise"_s, {u"Luc"_s});
        Sql(u"reprise"_s, u"INSERT INTO Alerte VALUES (9, 'anniversaire', 1)"_s);
        Sql(u"reprise"_s, u"INSERT INTO Listecoal VALUES (9, 'ŒUVRARD François', '', 0)"_s);
        QFile::remove(Chemin(u"app/Sauvan.cfg"_s));
        const QString bilan = Sauvan(c[0] + u".mdb"_s).section(u"\n\n"_s, 0, 0);
        const auto fiches = [&](const QString &base) {
          QString colonnes;
          for (const QString &nom : ListeColonnes(Table<Correspondant>{}, 1).split(u", "_s))
            if (nom != u"[AlerteActive]" && nom != u"[NomVelmira]")
              colonnes += u"|| '/' || coalesce(%1, '')"_s.arg(
                  nom != u"[Commentaires]"
                      ? nom
                      : u"rtrim(substr(%1, 1, instr(%1 || 'Téléphone (', 'Téléphone (') - 1), x'0A')"_s
                            .arg(nom));
          return Sql(base, u"SELECT '' %1 FROM Adresse WHERE ifnull(NomVelmira, '')<>'Luc'"_s.arg(
                               colonnes));
        };
        EXPECT_EQ(fiches(u"reprise"_s), fiches(u"attendu"_s));
        EXPECT_EQ(Sql(u"reprise"_s, u"SELECT count(*) FROM Adresse WHERE NomVelmira=''"_s), u"0"_s);
        // What the rule of the numbers drops stands in the notes.
        EXPECT_EQ(Sql(u"reprise"_s,
                      u"SELECT replace(Commentaires, x'0A', ', ') FROM Adresse WHERE "
                      "Ligne1='etienne anne'"_s),
                  c[0] == u"vide"_s ? u""_s : u"Téléphone (travail) : poste 12, Fax : néant"_s);
        EXPECT_EQ(Octets(u"app/Sauvan.cfg"_s),
                  QByteArray(c[0] == u"vide"_s ? "(no file)" : "1,1\r\n"));
        const QStringList une = Tout(u"reprise"_s);
        EXPECT_TRUE(Sauvan(c[0] + u".mdb"_s).startsWith(u"0 "_s));
        EXPECT_EQ(Tout(u"reprise"_s), une);
        const QString evenements = Sql(u"reprise"_s,
                                       u"SELECT substr(p.Nom, 1, 2) || substr(e.Date, 1, 5) FROM "
                                       "ListeAlerte e JOIN Listecoal p ON e.Nom=p.ID "
                                       "JOIN Alerte t ON t.ID=e.Alerte ORDER BY e.ID"_s);
        return (QString(bilan).replace(QRegularExpression(u"\\D+"_s), u" "_s) + evenements)
            .trimmed();
      });
}

// What a damaged sample shows, and the correspondents and notes that are there once it is accepted.
TEST_F(Jet, ExemplesAbimes) {
  if (!qEnvironmentVariableIsSet("VELMIRA_JET")) GTEST_SKIP() << "VELMIRA_JET names no folder";
  const QString base = u"DataVelmira/Velmira.mdb"_s;
  Cas(R"(
    tronque | le fichier est endommagé | || abime | 23 sur 25, dont une valeur illisible | 23 7
    plante | correspondants : 25, peut-être pas tous | 25 8
    boucle | correspondants : 25, dont une valeur illisible | 25 7
    milliards | correspondants : 25 sur 4 294 967 295 | 25 8
  )",
      [&](Rangee c) {
        QByteArray octets = Lire((c[0] == u"milliards" ? u"petit"_s : c[0]) + u".mdb"_s);
        for (qsizetype i = 0; c[0] == u"milliards" && i + 4096 <= octets.size(); i += 4096)
          if (octets[i] == '\2' && octets[i + 16] == '\31')
            octets.replace(i + 16, 4, "\xff\xff\xff\xff");
        const QString constat = QString(c[1]).replace(u"\\u202f"_s, u"\u202f"_s);
        EXPECT_TRUE(Demarrer(octets).constLast().contains(constat));
        EXPECT_TRUE(Octets(base) == octets && !Existe(u"DataVelmira/Velmira_base.mdb"_s));
        CreerBase(u"reprise"_s);
        const QByteArray avant = Octets(u"reprise"_s);
        Poser(u"seule"_s, octets);
        const QString fin = Sauvan(Chemin(u"seule"_s));
        EXPECT_TRUE(fin.startsWith(u"2 "_s) && fin.contains(constat)) << fin.toStdString();
        EXPECT_TRUE(Octets(u"reprise"_s) == avant && !Existe(u"app/Sauvan.cfg"_s));
        const QStringList vues = Demarrer(octets, Boites::Reponse::Oui);
        if (vues.size() == 1) return QString();
        EXPECT_EQ(Octets(u"DataVelmira/Ancien_Velmira.mdb"_s), octets);
        return Sql(base, u"SELECT count(*) || ' ' || count(Commentaires) FROM Adresse"_s);
      });
  // Between the reading and the copy another program was there.
  const Dossiers dossiers{Chemin(u"app"_s), {}, Chemin(u"DataVelmira"_s), {}};
  const auto avancement = [](qsizetype) {};
  Poser(base, Lire(u"petit.mdb"_s));
  SourceJet jet(Chemin(base));
  Poser(base, Lire(u"petit.mdb"_s) + "plus");
  EXPECT_TRUE(
      Echec([&] { MettreAJourBaseJet(dossiers, jet, u" "_s, avancement); }).contains(u"changé"));
  CreerBase(base, {u"Luc"_s});
  MettreAJourBaseJet(dossiers, jet, u" "_s, avancement);
  EXPECT_EQ(Noms(base), u"Luc"_s);
}
