// The upgrade: what becomes of each value, bases of every age, old settings.

#include "Outils.h"
#include "storage/EmplacementDonnees.h"
#include "storage/MiseAJour.h"
#include "storage/Reglages.h"
#include "storage/SourceSqlite.h"

class MiseAJour : public DansUnDossier {
 protected:
  /// Copies the file "ancien" into a new one.
  void Copier() {
    CreerBase(u"neuf"_s, {u"Fantôme"_s});
    Base cible;
    cible.Ouvrir(Chemin(u"neuf"_s));
    SourceSqlite source(ancien);
    CopierBase(source, cible, {u" "_s, 9}, [](qsizetype) {});
  }
  QString Lignes(const QString &table) const { return Sql(u"neuf"_s, u"SELECT * FROM "_s + table); }
  const QString ancien = Chemin(u"ancien"_s);
};

// Column, value of the old base, value of the new one.
TEST_F(MiseAJour, ValeursDUneFiche) {
  const char *valeurs = R"(
    Categories | 'Amis' | *Amis* || Categories | 'Amis*' | *Amis* || Categories | '*Amis*' | *Amis*
    Categories | 'A*B' | *A*B* || Categories | '' | || Categories | NULL | nul || Fax | 'ab' | b
    Tel | '02.40.12.34.56' | 02 40 12 34 56 || Fax | '+33 2 40' | 3 32 40 || TelTravail | 3639 | 36 39
    Portable | NULL | || Mail | '02.40' | 02.40 || Pays | NULL | nul || DataProt | 1 | 1
    DataProt | NULL | || DataProt | 'No' | || DataProt | '0' | || DataProt | 'Paul$' | Paul$
    OptionAdresse | '1' | 1 || OptionAdresse | 'un' | 0 || OptionAdresse | 1099511627776 | 0
    OptionAdresse | '' | 0 || ListeRougeTel | -1 | 1 || ListeRougeTravail | NULL | 0
    NomVelmira | 'ÉLODIE' | ÉLODIE || NomVelmira | 'Luc' | Luc
  )";
  CreerBaseAncienne(ancien);
  Cas(valeurs, [this](Rangee c) {
    Sql(u"ancien"_s, u"INSERT INTO Adresse ([%1]) VALUES (%2)"_s.arg(c[0], c[1]));
  });
  Sql(u"ancien"_s, u"INSERT INTO Listecoal VALUES (3, 'Élodie', '', 1), (5, 'LUC', NULL, 0)"_s);
  Copier();
  int rang = 0;
  Cas(valeurs, [&](Rangee c) {
    const QString ou = u" FROM Adresse WHERE [Index]=%1"_s.arg(++rang);
    EXPECT_EQ(Sql(u"neuf"_s, u"SELECT AlerteActive"_s + ou), c[2] == u"ÉLODIE" ? u"1"_s : u"0"_s);
    return Sql(u"neuf"_s, u"SELECT [%1]"_s.arg(c[0]) + ou);
  });
  EXPECT_EQ(Lignes(u"Listecoal"_s), u"1|Élodie||1 2|LUC|nul|0"_s);
}

// Tables by their columns at that time; what is left of the end of a record and of an event.
TEST_F(MiseAJour, BasesDeChaqueAge) {
  const QStringList lignes =
      u"Adresse 7,'L1','2','3','4','5','44000','Nantes','F','Amis','Durand','0240','0241','m',"
      "'notes','06','imp',1,'w','0242','p',1,0,'01/01/1950','Paul$',0;"
      "Expediteur 3,'L1','2','3','4','5','CP','V','P',1,'1';Ville 4,'44000','Nantes','4*9';"
      "Alerte 2,'Fête',0;Listecoal 1,'DURAND','01/01/1950',1;"
      "ListeAlerte 7,12,'3','01/02/2020',1,0,3,0"_s.split(u';');
  Cas(R"(
    Adresse 26 | 01/01/1950;Paul$;1 | 1;12;3;01/02/2020;1;0;3;0
    Adresse 24 Alerte 2 Listecoal 3 ListeAlerte 6 | 01/01/1950;;1 | 1;12;3;01/02/2020;1;0;9;1
    Adresse 17 ListeAlerte 7 | nul;;1 | 1;12;3;01/02/2020;1;0;3;1
    Alerte 0 Listecoal 0 ListeAlerte 0 | 01/01/1950;Paul$;0 |
  )",
      [&](Rangee c) {
        QMap<QString, int> colonnes;
        const QStringList mots = c[0].split(u' ');
        for (int i = 0; i < mots.size(); i += 2) colonnes[mots[i]] = mots[i + 1].toInt();
        CreerBaseAncienne(ancien, colonnes);
        for (const QString &ligne : lignes) {
          const QString table = ligne.section(u' ', 0, 0);
          const auto champs = ligne.section(u' ', 1).split(u',').mid(0, colonnes.value(table, 99));
          if (!champs.isEmpty())
            Sql(u"ancien"_s, u"INSERT INTO %1 VALUES (%2)"_s.arg(table, champs.join(u',')));
        }
        Copier();
        const QString fiche = Lignes(u"Adresse"_s).replace(u'|', u';');
        EXPECT_TRUE(fiche.startsWith(
            u"1;L1;2;3;4;5;44000;Nantes;F;*Amis*;Durand;02 40;02 41;m;notes;06;imp;"_s));
        EXPECT_TRUE(fiche.endsWith(u';' + c[1])) << fiche.toStdString();
        EXPECT_EQ(Lignes(u"Expediteur"_s) + Lignes(u"Ville"_s),
                  u"1|L1|2|3|4|5|CP|V|P|1|11|44000|Nantes|4*9"_s);
        return Lignes(u"ListeAlerte"_s).replace(u'|', u';');
      });
  // What makes a row must be there; else the target keeps what it had.
  Cas("Adresse | 8 | oui || Adresse | 9 | non || Expediteur | 10 | oui || Ville | 3 | oui",
      [this](Rangee c) {
        CreerBaseAncienne(ancien, {{c[0], c[1].toInt()}});
        Sql(u"ancien"_s, u"INSERT INTO %1 DEFAULT VALUES"_s.arg(c[0]));
        const bool refusee = Echec([this] { Copier(); }).contains(c[0]);
        EXPECT_EQ(Noms(u"neuf"_s) == u"Fantôme"_s, refusee);
        return OuiNon(refusee);
      });
  // Notes that cannot be read to their end stay empty, with what stands behind them.
  CreerBaseAncienne(ancien);
  for (const QString &notes : {u"court"_s, QString(40'000, u'n'), u"court"_s})
    Sql(u"ancien"_s,
        u"INSERT INTO Adresse (Tel, Commentaires, Web) VALUES ('1', '%1', 'w')"_s.arg(notes));
  QByteArray octets = Octets(u"ancien"_s);
  const qsizetype milieu = octets.indexOf(QByteArray(4000, 'n')) / 4096 * 4096 + 4096;
  Poser(u"ancien"_s, octets.replace(milieu, 4, "\xff\xff\xff\xff"));  // number of the next page
  Copier();
  EXPECT_EQ(Sql(u"neuf"_s, u"SELECT Tel, Commentaires, Web FROM Adresse"_s),
            u"1|court|w 1|nul|nul 1|court|w"_s);
}

// Five values are the old form, which an upgrade that failed leaves; another long line is damaged.
TEST_F(MiseAJour, AncienneAlarme) {
  Cas("15,0,1,0,2 | 0,1,2¶ || 300,1,1,1,2¶ | 1,1,2¶ || 12,1,0,¶ | 12,1,0¶ || 1,1,12¶7,1 | 1,1,12¶",
      [this](Rangee c) {
        Poser(u"Alarme.ini"_s, c[0].toLatin1());
        ReglagesAlarme r;
        LireAlarme(Chemin(), r);
        EcrireAlarme(Chemin(), r);
        return QString::fromLatin1(Octets(u"Alarme.ini"_s));
      });
}

// The swap at its end, and what a start makes of the delivered base.
TEST_F(MiseAJour, Echange) {
  const Dossiers dossiers{Chemin(u"app"_s), Chemin(), Chemin(), {}};
  const QString base = u"Velmira.mdb"_s, livree = u"Velmira_base.mdb"_s;
  Poser(u"app/Alarme.ini"_s, "7,1,0,1,2\r\n");
  CreerBase(base, {u"Luc"_s});
  CreerBase(livree, {u"Zoé"_s});
  {
    const DisquePlein plein(0);  // the settings cannot be rewritten
    EXPECT_NE(Echec([&] { EchangerBases(dossiers); }), u""_s);
  }
  EXPECT_EQ(Noms(base) + Noms(livree), u"LucZoé"_s) << "taken back";
  EXPECT_FALSE(EchangeInterrompu(Chemin()) || BaseLivreeDepassee(dossiers));
  Sql(base, u"PRAGMA user_version=2"_s);
  EXPECT_TRUE(BaseLivreeDepassee(dossiers)) << "it stays away from a newer one";
  // What a killed upgrade has left half written gives way to a newer one, or is taken back.
  TuerUnEcrivain(livree);
  CreerBase(u"app/Velmira_base.mdb"_s, {u"Neuve"_s});
  RemplacerBaseLivree(dossiers);
  EXPECT_EQ(Noms(livree), u"Neuve"_s);
  TuerUnEcrivain(livree);
  QFile::remove(Chemin(base));
  PoserBaseLivree(Chemin());
  EXPECT_EQ(Noms(base), u"Neuve"_s);
}
