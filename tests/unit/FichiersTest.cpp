// Files: what is replaced, the settings, the default sender, the application folder.

#include "Outils.h"
#include "envelope/ExpediteurDefaut.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "storage/DossierApplication.h"
#include "storage/Reglages.h"

using Fichiers = DansUnDossier;

TEST_F(Fichiers, ToutOuRien) {
  Poser(u"f"_s, "ancien");
  QFile::setPermissions(Chemin(u"f"_s), QFile::ReadOwner | QFile::WriteOwner);
  QFile::link(Chemin(u"f"_s), Chemin(u"lien"_s));
  {
    const DisquePlein plein(100);
    EXPECT_NE(Echec([&] { RemplacerFichier(Chemin(u"f"_s), QByteArray(9000, 'b')); }), u""_s);
    EXPECT_NE(Echec([&] { CreerFichier(Chemin(u"g"_s), QByteArray(9000, 'b')); }), u""_s);
  }
  EXPECT_EQ(QDir(Chemin()).entryList(QDir::Files | QDir::Hidden).join(u' '), u"f lien"_s);
  EXPECT_EQ(Octets(u"f"_s), "ancien");
  RemplacerFichier(Chemin(u"lien"_s), "neuf");
  EXPECT_TRUE(QFileInfo(Chemin(u"lien"_s)).isSymLink() && Octets(u"f"_s) == "neuf");
  EXPECT_FALSE(QFileInfo(Chemin(u"f"_s)).permission(QFile::ReadOther)) << "as private as before";
  // Another disk and this one, a free name, then the same, which is taken.
  const QTemporaryDir ailleurs(u"/dev/shm/velmira-XXXXXX"_s);
  for (const QString &but : {ailleurs.filePath(u"f"_s), Chemin(u"g"_s)})
    for (const bool libre : {true, false}) {
      Poser(u"a"_s, "a");
      EXPECT_EQ(Echec([&] { RenommerFichier(Chemin(u"a"_s), but); }).isEmpty(), libre);
      EXPECT_TRUE(Existe(u"a"_s) != libre && LireFichier(but) == "a") << but.toStdString();
    }
}

// What begins the name of a file: no sign that a disk refuses, not hidden, whole signs in 180
// bytes.
TEST_F(Fichiers, DebutsDeNoms) {
  Cas(R"(M. Denis Albert | M. Denis Albert || ·A/B\C:D*E?F"G<H>I↵J· | A B C D E F G H I J
         ..secret·. | secret . || ↵/↵ | )",
      [](Rangee c) { return DebutNomFichier(c[0]); });
  EXPECT_EQ(DebutNomFichier(u"é"_s.repeated(400)), u"é"_s.repeated(90));
  EXPECT_EQ(DebutNomFichier(u'x' + u"e\u0301"_s.repeated(90)), u'x' + u"e\u0301"_s.repeated(59));
}

TEST_F(Fichiers, Reglages) {
  Poser(u"Plomex.ini"_s,
        "[Defaut]\r\nOrientation=2\r\nTailleA=11\r\nGrasA=4\r\nMargeMAX=-16\r\nMargeMEX= -5 \r\n"
        "Adresse=True\r\nTailleE=8.6\r\nPoliceA=" +
            QByteArray(50, 'p') + "\r\nImprimante=" + QByteArray(50, 'i'));
  ::Reglages r;
  LireReglages(Chemin(), r);
  const ReglagesPlomex &p = r.plomex;
  EXPECT_EQ(p.PoliceA.size() * 100 + p.Imprimante.size(), 2939) << "cut";
  // What makes no sense leaves the old value.
  Poser(u"Plomex.ini"_s,
        "[Defaut]\r\nOrientation=256\r\nTailleA=32768\r\nGrasA=\r\nMargeMAX=nan\r\n"
        "Adresse=peut-etre\r\nTelephone=-1\r\nIcoMenu=VRAI\r\nEnveloppe=0\r\n");
  LireReglages(Chemin(), r);
  EXPECT_EQ(std::tuple(int(p.Orientation), p.TailleA, p.TailleE, p.GrasA.Nombre(),
                       p.MargeMAX.valeur, p.MargeMEX.valeur),
            std::tuple(2, 11, 9, 4, -16, -5));
  EXPECT_TRUE(p.Adresse && p.Telephone && p.IcoMenu && !p.Enveloppe);
  Poser(u"RTColor.ini"_s, "40000,x,70,\"P\",300,99999999999,1,-1,2\r\n");
  LireReglages(Chemin(), r);
  EcrireRTColor(Chemin(), r.rtcolor);
  EXPECT_EQ(Octets(u"RTColor.ini"_s), "225,150,70,\"P\",1,9000,1,0,2,0,1,0,0,0\r\n");
}

// A character that the file lacks comes from the default sender's row. The sender and its option.
TEST_F(Fichiers, ExpediteurParDefaut) {
  CreerBase(u"a"_s);
  Sql(u"a"_s,
      u"INSERT INTO Expediteur (Ligne1, Ville, ParDefaut) VALUES ('Łu', 'L', 0), "
      "('Dvořák', 'Łódź', 1)"_s);
  Base base;
  base.Ouvrir(Chemin(u"a"_s));
  Cas(R"(Élo$44000*N$·¶1¶ | Élo$44000*N$·1 || Élo$N$·¶ | Élo$N$·0 || ?u$L$·¶0¶ | ?u$L$·0
         Dvo?ák$?ód?$·¶0¶ | Dvořák$Łódź$·0 || $ | aucun)",
      [&](Rangee c) {
        Poser(u"Defaut.ini"_s, VersPageDeCode(c[0]));
        const auto lu = LireExpediteurDefaut(Chemin(), base);
        return lu ? lu->chaine + QString::number(Nombre(lu->optionCP)) : u"aucun"_s;
      });
  // What is undone in the table is undone in the file.
  Poser(u"Defaut.ini"_s, "A$ $ \r\n1\r\n");
  for (const bool garder : {false, true}) {
    {
      FichierDefaut fichier(Chemin());
      fichier.ChoisirAucun();
      if (garder) fichier.Garder();
    }
    EXPECT_EQ(Octets(u"Defaut.ini"_s), garder ? "\r\n0\r\n" : "A$ $ \r\n1\r\n");
  }
}

// Filled once from the installed files; the base and the guide follow their editions.
TEST_F(Fichiers, DossierDApplication) {
  for (const QString &nom : {u"i/Saints.txt"_s, u"i/Titres.txt"_s, u"h/Saints.txt"_s})
    Poser(nom, nom.left(1).toLatin1());
  const QString bin = Chemin(u"bin"_s), installe = Chemin(u"i"_s), mien = Chemin(u"h"_s);
  // The installed version and edition; whether a base is laid, what stands in the guide and in a
  // list.
  Cas("1 A | oui A i || 1 A | non moi moi || 3 B | oui B moi || 2 C | non C moi || 4 C | oui moi "
      "moi",
      [&](Rangee c) {
        CreerBase(u"i/Velmira_base.mdb"_s);
        Sql(u"i/Velmira_base.mdb"_s, u"PRAGMA user_version="_s + c[0][0]);
        for (const QString &nom : {u"i/guide/edition.txt"_s, u"i/guide/images/x.png"_s})
          Poser(nom, c[0].right(1).toLatin1());
        EXPECT_EQ(TrouverAppPath(bin, installe, mien), mien);
        const QByteArray guide =
            Octets(u"h/guide/images/x.png"_s) + ' ' + Octets(u"h/Titres.txt"_s);
        for (const QString &nom : {u"h/guide/images/x.png"_s, u"h/Titres.txt"_s}) Poser(nom, "moi");
        return OuiNon(QFile::remove(Chemin(u"h/Velmira_base.mdb"_s))) + u' ' +
               QString::fromUtf8(guide);
      });
  EXPECT_EQ(Octets(u"h/Saints.txt"_s), "h");
  Poser(u"bin/Velmira.portable"_s, "");
  EXPECT_EQ(TrouverAppPath(bin, installe, mien), bin);
}
