// Persons of other programs' files beside those who are there: who is known, what each answer does,
// what is told, and that a stop or a failure leaves nothing behind.

#include "Outils.h"
#include "app/Sauvan.h"
#include "exchange/EtudeReprise.h"
#include "exchange/Reprise.h"
#include "exchange/TextesReprise.h"
#include "storage/Balayage.h"

#include <QDir>

#include <csignal>

using L = Correspondant;

static const UsagesReprise kUsages{u" "_s, {}};
static const QDateTime kMaintenant(QDate(2026, 3, 1), QTime(9, 0));
static const Avance kSansArret = [](qsizetype, qsizetype) { return true; };
static const QHash<QString, Deja> kReponses{{u"C"_s, Deja::Completer},
                                            {u"G"_s, Deja::Garder},
                                            {u"P"_s, Deja::Prendre},
                                            {u"D"_s, Deja::Deux}};
static const QByteArray kImage = QByteArray("\xFF\xD8\xFF", 3) + QByteArray(200, 'x');

class VenusDAilleurs : public DansUnDossier {
 protected:
  void SetUp() override {
    CreerBase(u"b"_s);
    base_.Ouvrir(Chemin(u"b"_s));
  }

  DemandeReprise Demande(Deja deja = Deja::Completer) const {
    return {.deja = deja, .utilisateur = u"moi"_s, .dossierPhotos = Chemin(u"Photos"_s)};
  }
  QList<FichierRepris> Cartes(const QString &cartes) const {
    QByteArray octets;
    for (const QString &carte : cartes.split(u"++"_s))
      octets += "BEGIN:VCARD\nVERSION:3.0\n" + carte.trimmed().replace(u'~', u'\n').toUtf8() +
                "\nEND:VCARD\n";
    Poser(u"c.vcf"_s, octets);
    return {Regarder(Chemin(u"c.vcf"_s), {})};
  }
  BilanReprise Reprendre(const QString &cartes, const DemandeReprise &demande,
                         const Avance &avance = kSansArret) {
    return ReprendrePersonnes(base_, Cartes(cartes), kUsages, demande, avance);
  }
  /// As it would be met: of the file, refused, new, of these twice, the same, otherwise.
  QString Etude(const QString &cartes) {
    FichierNu autre(Chemin(u"b"_s));
    autre.Executer(u"BEGIN IMMEDIATE"_s);  // somebody is writing
    const auto e = EtudierReprise(base_, Cartes(cartes), kUsages, u"moi"_s, kSansArret);
    return u"%1 %2 %3 %4 %5 %6"_s.arg(e.fichiers[0].fiches)
        .arg(e.refus.lignes.size())
        .arg(e.nouvelles)
        .arg(e.repetees)
        .arg(e.identiques)
        .arg(e.rencontres.size());
  }
  static QString Comptes(const BilanReprise &b) {
    return u"%1 %2 %3 %4 %5 %6"_s.arg(b.ajoutes)
        .arg(b.completes)
        .arg(b.remplaces)
        .arg(b.identiques)
        .arg(b.gardes)
        .arg(b.refuses);
  }
  QString Fiches() const {
    QString texte = u"NomVelmira"_s;
    for (const QString &champ : {u"Ligne2"_s, u"Ville"_s, u"Tel"_s, u"Mail"_s, u"Categories"_s,
                                 u"replace(Commentaires, char(10), '/')"_s})
      texte += u" || coalesce(',' || NULLIF(%1, ''), '')"_s.arg(champ);
    return Sql(u"b"_s, u"SELECT %1 FROM Adresse ORDER BY [Index]"_s.arg(texte));
  }
  QStringList Images() const {
    return QDir(Chemin(u"Photos"_s)).entryList(QDir::Files, QDir::Name);
  }

  Base base_;
};

// Answer; the cards; added, completed, replaced, same, kept, refused; the study; the records.
TEST_F(VenusDAilleurs, DejaLa) {
  const QString la = u"N:Durand;Paul;;M.~TEL;TYPE=HOME:0102030405~NOTE:vu~CATEGORIES:Amis"_s;
  Cas(R"(
    C | N:DURAND;PAUL~TEL;TYPE=HOME:01.02.03.04.05~EMAIL:p@a | 0 1 0 0 0 0 | Durand Paul,01 02 03 04 05,p@a,*Amis*,vu
    C | N:Durand;Paul~TEL;TYPE=HOME:0102030406~EMAIL:p@a | 0 1 0 0 0 0 | Durand Paul,01 02 03 04 05,p@a,*Amis*,vu/Téléphone (domicile) : 01 02 03 04 06
    C | N:Durand;Paul~TEL;TYPE=HOME:0102030406~NICKNAME:Jo | 0 1 0 0 0 0 | Durand Paul,01 02 03 04 05,*Amis*,vu/Surnom : Jo/Téléphone (domicile) : 01 02 03 04 06
    C | N:Durand;Paul~PHOTO;ENCODING=b:/9j/4AAQ++N:Durand;Paul~PHOTO;ENCODING=b:/9j/4AAR | 1 1 0 0 0 0 | Durand Paul,01 02 03 04 05,*Amis*,vu Durand Paul
    C | N:Durand;Paul~NOTE:vu~CATEGORIES:Amis | 0 0 0 1 0 0 | 1 0 0 0 1 0 | Durand Paul,01 02 03 04 05,*Amis*,vu
    C | N:Durand;Paul~NOTE:dit~NICKNAME:Jo~CATEGORIES:Pro,Amis | 0 1 0 0 0 0 | Durand Paul,01 02 03 04 05,*Amis*Pro*,vu/dit/Surnom : Jo
    C | N:Durand;Paul~X-VELMIRA-LISTEROUGETEL:oui | 0 1 0 0 0 0 | Durand Paul,01 02 03 04 05,*Amis*,vu
    G | N:Durand;Paul~EMAIL:p@a | 0 0 0 0 1 0 | Durand Paul,01 02 03 04 05,*Amis*,vu
    P | N:Durand;Paul~TEL;TYPE=HOME:06~NOTE:dit | 0 0 1 0 0 0 | Durand Paul,06,*Amis*,vu/dit
    D | N:Durand;Paul~EMAIL:p@a | 1 0 0 0 0 0 | Durand Paul,01 02 03 04 05,*Amis*,vu Durand Paul,p@a
    D | N:Durand;Paul~NOTE:vu | 0 0 0 1 0 0 | Durand Paul,01 02 03 04 05,*Amis*,vu
    C | N:A~TEL;TYPE=HOME:1++N:a~EMAIL:a@a++N:A~TEL;TYPE=HOME:2++NOTE:personne | 2 1 0 0 0 1 | 4 1 3 2 0 0 | Durand Paul,01 02 03 04 05,*Amis*,vu A,1,a@a A,2
    C | N:Durand;Paul~EMAIL:p@a++N:Durand;Paul~EMAIL:q@a | 1 1 0 0 0 0 | 2 0 0 0 0 2 | Durand Paul,01 02 03 04 05,p@a,*Amis*,vu Durand Paul,q@a
  )",
      [&](Rangee c) {
        Sql(u"b"_s, u"DELETE FROM Adresse"_s);
        Reprendre(la, Demande());
        if (c.size() > 4) {
          EXPECT_EQ(Etude(c[1]), c[3]);
        }
        EXPECT_EQ(Comptes(Reprendre(c[1], Demande(kReponses[c[0]]))), c[2]);
        const QString une = Fiches();
        Reprendre(c[1], Demande(kReponses[c[0]]));
        EXPECT_EQ(Fiches(), une) << "the same file again changes nothing";
        return une;
      });
  QStringList homonymes;
  for (int i = 0; i < 120; ++i) homonymes.append(u"N:Mairie~EMAIL:%1@a"_s.arg(i));
  EXPECT_EQ(Reprendre(homonymes.join(u"++"_s), Demande()).ajoutes, 120);
  EXPECT_EQ(Reprendre(homonymes.join(u"++"_s), Demande()).identiques, 120);
}

// An address is one value, a number is one however it is written, an answer may be by field.
TEST_F(VenusDAilleurs, ChampParChamp) {
  const QString la = u"N:B;A~ADR:;;3 rue A;Nantes;;44000;~EMAIL:a@a"_s;
  const auto apres = [&](const QString &carte, const DemandeReprise &demande) {
    Sql(u"b"_s, u"DELETE FROM Adresse"_s);
    Reprendre(la, Demande());
    const BilanReprise bilan = Reprendre(u"N:B;A~"_s + carte, demande);
    return Fiches() + u" / "_s + bilan.ecarts.lignes.join(u" / "_s);
  };
  Cas(R"(
    C | ADR:;;9 rue B;Brest;;29200; | B A,3 rue A,Nantes,a@a,Adresse : 9 rue B, 29200 Brest /
    G | ADR:;;9 rue B;Brest;;29200; | B A,3 rue A,Nantes,a@a / B A, Adresse, ligne 2 : « 3 rue A » gardé, « 9 rue B » dans le fichier / B A, Code postal : « 44000 » gardé, « 29200 » dans le fichier / B A, Ville : « Nantes » gardé, « Brest » dans le fichier
    C | EMAIL:a.@a~X-VELMIRA-LISTEROUGETEL:oui | B A,3 rue A,Nantes,a@a,Adresse email : a.@a /
    P | ADR:;;;Brest;;; | B A,Brest,a@a /
    C | ADR:;;3 RUE A;;;;Belgique | B A,3 rue A,Nantes,a@a /
  )",
      [&](Rangee c) { return apres(c[1], Demande(kReponses[c[0]])).trimmed(); });
  DemandeReprise choisie = Demande(Deja::Garder);
  choisie.reponses.insert({Chemin(u"c.vcf"_s), 1}, {Deja::Completer, Seulement(&L::Mail)});
  EXPECT_EQ(apres(u"EMAIL:b@b~TEL:0102030405"_s, choisie).section(u" / "_s, 0, 0),
            u"B A,3 rue A,Nantes,b@b"_s);
}

// Whom the user does not see is not there; others with the same mail or number are told.
TEST_F(VenusDAilleurs, CachesEtPartages) {
  CreerBase(u"b"_s, {u"A"_s, u"B"_s});
  base_.Ouvrir(Chemin(u"b"_s));
  Sql(u"b"_s, u"UPDATE Adresse SET DataProt='lui', Mail='a@a.fr' WHERE NomVelmira='A'"_s);
  Sql(u"b"_s, u"UPDATE Adresse SET DataProt='', Tel='01 02 03 04 05' WHERE NomVelmira='B'"_s);
  const BilanReprise bilan = Reprendre(
      u"N:A~EMAIL:a@a.fr~TEL:3639++N:C~TEL:0102030405~NICKNAME:Jo++N:D~TEL:3639"_s, Demande());
  EXPECT_EQ(Comptes(bilan), u"3 0 0 0 0 0"_s);
  EXPECT_EQ(TexteBilan(bilan),
            u"3 correspondants ajoutés.\n\nMis dans les notes :\n  C, Surnom : Jo\n\nMême adresse "
            "email ou même numéro sous deux noms, à regarder :\n  C et B : 01 02 03 04 05\n\n"
            "Ajoutés :\n  A\n  C\n  D\n"_s);
}

// A record that was hidden in another directory, by a card or as a row of an older base; twice.
TEST_F(VenusDAilleurs, MarquesVenuesDAilleurs) {
  CreerBase(u"vieille"_s, {u"Cachée"_s, u"Vue"_s, u"Vue"_s});
  Sql(u"vieille"_s, u"UPDATE Adresse SET DataProt=iif([Index]=1, 'lui', 'lui$'), Mail='a@a.fr'"_s);
  Sql(u"vieille"_s, u"INSERT INTO Listecoal (Nom, DDN, Disponible) VALUES ('VUE', '', 1)"_s);
  const QList<FichierRepris> base{Regarder(Chemin(u"vieille"_s), {})};
  for (const QString &comptes : {u"3 0 0 0 0 0"_s, u"0 0 0 3 0 0"_s}) {
    const auto e = EtudierReprise(base_, base, kUsages, u"moi"_s, kSansArret);
    EXPECT_EQ(e.premieres.size(), 2) << "nobody is shown what is hidden from him";
    const BilanReprise bilan = ReprendrePersonnes(base_, base, kUsages, Demande(), kSansArret);
    EXPECT_EQ(Comptes(bilan), comptes);
    EXPECT_EQ(bilan.caches, bilan.ajoutes / 3);
    EXPECT_TRUE(!bilan.ancienneBase && bilan.memeAdresse.lignes.isEmpty());
    Reprendre(u"N:Carte~X-VELMIRA-DATAPROT:lui~X-VELMIRA-ALERTEACTIVE:oui"_s, Demande());
    EXPECT_EQ(Sql(u"b"_s, u"SELECT NomVelmira || DataProt || AlerteActive FROM Adresse"_s),
              u"Cachéelui0 Vuelui$1 Vuelui$1 Cartemoi0"_s);
  }
}

TEST_F(VenusDAilleurs, ToutOuRien) {
  const QString image = u"~PHOTO;ENCODING=b:"_s + QString::fromLatin1(kImage.toBase64());
  const QString deux = u"N:A"_s + image + u"++N:A~TEL:1"_s + image + u"++N:A~TEL:2"_s + image;
  const Avance arret = [](qsizetype, qsizetype) { return false; };
  EXPECT_TRUE(Reprendre(deux, Demande(), arret).arrete);
  EXPECT_EQ(Fiches() + Images().join(u' '), u""_s);
  const FichierRepris present = Regarder(Chemin(u"c.vcf"_s), {});
  EXPECT_TRUE(EtudierReprise(base_, {present}, kUsages, {}, arret).arretee);
  FichierRepris parti = present;
  parti.chemin = Chemin(u"absent"_s);
  EXPECT_THROW(ReprendrePersonnes(base_, {present, parti}, kUsages, Demande(), kSansArret),
               ErreurFichier);
  EXPECT_EQ(Fiches() + Images().join(u' '), u""_s);

  if (const pid_t enfant = ::fork(); enfant == 0) {
    Base base;
    base.Ouvrir(Chemin(u"b"_s));
    ReprendrePersonnes(base, {present}, kUsages, Demande(),
                       [](qsizetype, qsizetype) { return ::kill(::getpid(), SIGKILL) == 0; });
  } else {
    ASSERT_EQ(::waitpid(enfant, nullptr, 0), enfant);
  }
  BalayerProvisoires(Chemin(u"Photos"_s), QDateTime::currentDateTime().addDays(2));
  EXPECT_EQ(QDir(Chemin(u"Photos"_s)).entryList(QDir::Files | QDir::Hidden), QStringList());
  EXPECT_EQ(Fiches(), u""_s);

  Poser(u"Photos/A.jpg"_s, "another one's");
  Reprendre(deux, Demande());
  EXPECT_EQ(Images(), QStringList({u"A 2.jpg"_s, u"A 3.jpg"_s, u"A.jpg"_s}));
  EXPECT_EQ(Octets(u"Photos/A 3.jpg"_s), kImage);
  EXPECT_EQ(Sql(u"b"_s, u"SELECT Photo FROM Adresse"_s),
            Chemin(u"Photos/A 2.jpg"_s) + u' ' + Chemin(u"Photos/A 3.jpg"_s));
  Reprendre(deux, Demande());
  EXPECT_EQ(Images().size(), 3) << "the same picture needs no second file";
  Sql(u"b"_s, u"DELETE FROM Adresse"_s);  // as one who undoes it
  Reprendre(deux, Demande());
  EXPECT_EQ(Images().size(), 3);
  EXPECT_EQ(Sql(u"b"_s, u"SELECT Photo FROM Adresse"_s),
            Chemin(u"Photos/A 2.jpg"_s) + u' ' + Chemin(u"Photos/A 3.jpg"_s));
}

// The command; what of it is refused; how it ends, and what stands in the base then.
TEST_F(VenusDAilleurs, SansFenetre) {
  Cas(R"(
    --help                           | 0 | Usage
    --version                        | 0 | Sauvan
    --deja prendre x.vcf             | 2 | « --vers »
    --fenetre --vers b x.vcf         | 2 | « --fenetre »
    --vers                           | 2 | nom d'une base
    --vers b                         | 2 | un fichier
    --vers b --deja autre x.vcf      | 2 | « completer »
    --vers b --force x.vcf           | 2 | « --force »
  )",
      [](Rangee c) {
        const auto reponse = LireDemandeSauvan(c[0].split(u' ')).reponse;
        ASSERT_TRUE(reponse);
        EXPECT_EQ(QString::number(reponse->statut), c[1]);
        EXPECT_TRUE(reponse->texte.contains(c[2])) << reponse->texte.toStdString();
      });
  Poser(u"bon"_s, "Nom;Ville\nA;Nantes\n");
  Poser(u"--mal"_s, "BEGIN:VCARD\nNOTE:x\nEND:VCARD\nBEGIN:VCARD\nFN:B\nEND:VCARD\n");
  Poser(u"vide"_s, "BEGIN:VCARD\nNOTE:x\nEND:VCARD\n");
  Poser(u"suite"_s, "Nom;Ville\nA;Brest\n");
  Poser(u"autre"_s, "rien");
  Cas(R"(
    /b bon                    | 0 | 1 correspondant ajouté. | A
    /b bon autre              | 2 | vCard          |
    /b bon absent             | 2 | absent         |
    /b bon --mal              | 1 | 1 fiche refusée  | A B
    /b vide                   | 2 | 1 fiche refusée  |
    /ailleurs bon             | 2 | n'existe pas   |
    /bon bon                  | 2 | Rien n'a changé |
    /b bon bon                | 0 | 1 déjà là      | A
    /b bon suite              | 0 | A, Adresse : Brest | A
  )",
      [this](Rangee c) {
        Sql(u"b"_s, u"DELETE FROM Adresse"_s);
        QStringList mots = c[0].split(u' ');
        for (QString &mot : mots) mot = Chemin(mot.startsWith(u'/') ? mot.mid(1) : mot);
        mots.prepend(u"--vers"_s);
        const Reponse fin =
            ReprendreSansFenetre(LireDemandeSauvan(mots), Chemin(), u"moi"_s, kMaintenant);
        EXPECT_EQ(QString::number(fin.statut), c[1]);
        EXPECT_TRUE(fin.texte.contains(c[2])) << fin.texte.toStdString();
        EXPECT_EQ(Noms(u"b"_s), c[3]);
      });
  EXPECT_TRUE(LireDemandeSauvan({}).retour && !LireDemandeSauvan({u"--fenetre"_s}).retour);
  EXPECT_EQ(LireDemandeSauvan({u"--fenetre"_s, u"x"_s}).fichiers, QStringList(u"x"_s));
  const auto demande =
      LireDemandeSauvan({u"--deja"_s, u"prendre"_s, u"--vers"_s, u"b c"_s, u"--"_s, u"--x"_s});
  EXPECT_TRUE(demande.deja == Deja::Prendre && demande.base == u"b c"_s);
  EXPECT_EQ(demande.fichiers, QStringList(u"--x"_s));
}
