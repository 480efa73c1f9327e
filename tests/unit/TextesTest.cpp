// What becomes of texts: numbers, addresses, titles, links, dates, lines of settings.

#include "Outils.h"
#include "address/MiseEnLignes.h"
#include "address/Titres.h"
#include "app/LigneDeCommande.h"
#include "calendar/SansAccents.h"
#include "directory/Liens.h"
#include "directory/Numerotation.h"
#include "platform/Enregistrement.h"
#include "platform/PageDeCode.h"
#include "platform/Saisie.h"
#include "platform/Sections.h"
#include "storage/Telephone.h"

// Pairs behind a lone digit. A sign that stands behind a removed one stays, unless it comes again.
TEST(Textes, NumeroEnregistre) {
  Cas(R"(
       | · |   || 7 | · | 7 || - | · |   || ab | · | b || (02) 40-12.34/567 | . | 0.24.01.23.45.67
    01-.23 | · | 0 1. 23 || 01-.2.3 | · | 01 23 || 01 _023 | · | 01 _0 23 || 0123-. | · | 0 12 3.
    0240 1 |   | 02401 || 024012 | ·-· | 02 - 40 - 12 || 36 / 39 | ·/· | 36 / 39
    369939 | 99 | 369939 || 0699123456 | 99 | 069999991299349956 || 02940 | 9 | 0929940
  )",
      [](Rangee c) { return FormatTelephone(c[0], c[1]); });
  EXPECT_EQ(FormatTelephone(u"36 / 39"_s, u"."_s, u" / "_s), u"36.39"_s) << "another separator";
}

// Text, separator, whether it is taken for a number when it is typed, what is dialled.
TEST(Textes, NumeroCompose) {
  Cas(R"(
    (+33) 2 40 | · | oui | +33 2 40 || *31#,0240 | · | oui | *31#,0240 || 40 + 2 | · | non | 40··2
    02_40 | · | non | 0240 || 02_40 | _ | oui | 0240 || ٠١٠é | · | non | || - | · | non |
    02*40*12 | * | oui | 02 40 12 || *31#02 | * | oui | *31#02
  )",
      [](Rangee c) {
        EXPECT_EQ(OuiNon(EstNumero(c[0], c[1])), c[2]);
        return NumeroAComposer(c[0], c[1]);
      });
  for (const char *mot : {"NO CARRIER", "NO ANSWER", "NO DIALTONE", "NO DIAL TONE", "ERROR"})
    EXPECT_EQ(LireReponse(QByteArray("\r\n") + mot)->mot, QLatin1String(mot));
  EXPECT_FALSE(LireReponse("ATDT 3639;\r\n"));
}

// Options: L a blank line after every line, P after the first, D before the last, V town in front;
// e is a sender, who has none of the blank ones. "!" tells of a country.
TEST(Textes, LignesDUneAdresse) {
  Cas(R"(
    A*B*C$1*V$· | | A*B*C*1 - V     || A*B*C$1*V$· | L | A**B**C**1 - V || A$1*V$· | D | A**1 - V
    A*B*C$1*V$· | P | A**B*C*1 - V  || A*B*C$1*V$· | D | A*B*C**1 - V   || A*B | P | A**B
    A$·$· | e | A* || A*B$·$Pays | P | A**B**Pays!    || A*B$·$· | D | A*B
    A*B$1*V$P | L | A**B**1 - V**P! || A$·$Pays | LPD | A**Pays!        || A$1*V$· | V | A*V - 1
    ·$1*V$· | LPD | 1 - V           || ·$·$Pays | | **Pays!             || $$Pays | | *Pays!
    A*B$1*V$· | Ve | A*B*V - 1      || A$44000$· | V | A*44000          || ·$·$· | LPD | || | LPD |
    A*B*C$1*V$· | LPDe | A*B*C*1 - V || A$1*V$P | LPDe | A*1 - V*P!     || A$·$P | e | A**P!
  )",
      [](Rangee c) {
        const auto option = [&c](QChar lettre) { return c[1].contains(lettre); };
        const auto lignes = MettreEnLignes(
            c[0], option(u'e') ? Role::Expediteur : Role::Destinataire,
            {option(u'L'), option(u'P'), option(u'D'), OptionDe(option(u'V')), u" - "_s});
        return lignes.texte + (lignes.paysPresent ? u"!"_s : u""_s);
      });
}

TEST(Textes, TitreRemplace) {
  const QStringList titres{u"M. et Mme"_s, u"M."_s, u"Mme"_s, u"Docteur  "_s};
  Cas("M. et Mme Paul | M. | M. Paul || Mmemosyne | M. | M. Mmemosyne || M. Paul | | Paul ||"
      "Docteur···Paul | Mme·· | Mme Paul || Mme | M. | M.· || ·Paul· | | ·Paul·",
      [&](Rangee c) { return RemplacerTitre(c[0], titres, c[1]); });
}

// Nothing that the desktop would take for a command or for a file.
TEST(Textes, Liens) {
  Cas(R"(
    ·J-P.O'Neil+velo@poste.ex.fr· | mailto:J-P.O'Neil+velo@poste.ex.fr || root@localhost | mailto:root@localhost
    MAILTO:été@école.fr | mailto:été@école.fr || Albert | non || a@ | non || @b.fr | non || | non
    a@b.fr,c@d.fr | non || a@b c@d | non || a%3Fattach=x@b.fr | non || a@b.fr?a=/x | non || a@b.fr↵x | non
  )",
      [](Rangee c) { return LienCourriel(c[0]).value_or(u"non"_s); });
  Cas(R"(
    http://ex.fr | http://ex.fr || HTTPS://ex.fr/a?b=c#d | HTTPS://ex.fr/a?b=c#d || http:///etc | non
    ·www.ex.fr/a & fils | http://www.ex.fr/a & fils || intranet | http://intranet || ../x | non
    ex.fr:8080/x | http://ex.fr:8080/x || localhost:80 | http://localhost:80 || C:\x.exe | non
    mailto:a@b.fr | mailto:a@b.fr || mailto:a@b.fr?attach=x | non || a@b.fr | non || | non
    FILE:/etc/passwd | non || ~/x | non || smb://serveur/x | non || \\serveur\x | non || javascript:1 | non
  )",
      [](Rangee c) { return LienSite(c[0]).value_or(u"non"_s); });
}

TEST(Textes, DatesEtNombresTapes) {
  Cas(R"(
    31/12/29 | 2029-12-31 || 1/1/30 | 1930-01-01 || 01.02.00 | 2000-02-01 || 3-4-1850 | 1850-04-03
    29/02/2024 | 2024-02-29 || 29/02/2023 | || 1/13/2020 | || 1/2 | || 1/2/3 | || 1/2/203 |
    1 2 2020 | || 1//2/2020 | || 1/-2/2020 | || 1/2/2020x | || 2020/1/2 | || |
  )",
      [](Rangee c) { return DateSaisie(c[0]).toString(Qt::ISODate); });
  Cas(R"(
    110 mm | 110 || 110,5 | 110.5 || ·110.25x | 110.25 || -3,5 | -3.5 || +4 | 4 || ,5 | 0.5 || 5, | 5
    12,5,3 | 12.5 || mm 110 | 0 || , | 0 || | 0 || nan | 0 || -1 000,5 | -1000.5 || 1 0000 | 1
  )",
      [](Rangee c) { return QString::number(NombreSaisi(c[0])); });
}

TEST(Textes, PageDeCodeEtAccents) {
  QByteArray page;
  for (int i = 0; i < 256; ++i) page += static_cast<char>(i);
  EXPECT_EQ(VersPageDeCode(DepuisPageDeCode(page)), page);
  EXPECT_EQ(VersPageDeCode(u"été → œuf 東 a😀b"_s + QChar(0xD83D)), "\xE9t\xE9 ? \x9Cuf ? a?b?");
  EXPECT_EQ(SansAccents(u"Éléonore ÀÁÂÃÄÅ òóôõöø ÿ Ññ Çç ïü Œuf Ýs Æ ß Š 😀 é"_s),
            u"Eleonore AAAAAA oooooo y Nn Cc iu Œuf Ýs Æ ß Š 😀 e"_s);
}

TEST(Textes, LignesDeReglages) {
  Cas(R"(
    "C:\Users\Paul"¶ | C:\Users\Paul; || 1,"a, b",-3¶ | 1;a, b;-3; || "·-·","" | ·-·;;
    1¶2↵3 | 1;2;3; || ·7·,·8· | 7;8; || ,5 | ;5; || "jamais fermé | jamais fermé; || |
  )",
      [](Rangee c) {
        LecteurEnregistrement lecteur(VersPageDeCode(c[0]));
        QString lues;
        while (const auto valeur = lecteur.Suivant()) lues += *valeur + u';';
        return lues;
      });
  const Sections lues(
      "orphelin=0\r\n[Autre]\r\nTailleA=1\r\n\r\n[DEFAUT]\r\n;TailleA=2\r\nsans signe\r\n"
      "  taillea = 12 \nTailleA=3\r\nBord imprim\xE9=2\r\nCite=\" x=y "
      "\"\r\nSimple='a'\r\nUne=\"\r\n"
      "=9\r\n[Suite]\r\nLoin=1\r\n[Defaut]\r\nLoin=2\r\n");
  Cas(R"(TailleA | 12 || BORD IMPRIMÉ | 2 || Cite | ·x=y· || Simple | a || Une | "
         orphelin | || Loin | || sans signe | || | )",
      [&](Rangee c) { return lues.LireCle(u"Defaut"_s, c[0], 30); });
  Cas(R"(
    B |  | [S]¶B=9¶ || B | [T]¶B=2 | [T]¶B=2¶[S]¶B=9¶ || B | [S]¶[T]¶ | [S]¶B=9¶[T]¶
    B | [S]↵;B=1↵ | [S]↵;B=1↵B=9↵ || ÉTÉ | [s]¶··été··=1¶C=1↵ | [s]¶··été··=9¶C=1↵
    B | ; tete¶¶[S]¶A = 1¶inconnu¶¶[T]¶B=2¶ | ; tete¶¶[S]¶A = 1¶inconnu¶B=9¶¶[T]¶B=2¶
  )",
      [](Rangee c) {
        Sections s(VersPageDeCode(c[1]));
        s.EcrireCle(u"S"_s, c[0], u"9"_s);
        return DepuisPageDeCode(s.Octets());
      });
}

// Words of Velmira; what they ask to be opened, over the words for another run.
TEST(Textes, FicheVoulue) {
  Cas(R"(
    --fiche 12 | libre 12 non || --fiche Zoé·X --enveloppe | libre Zoé·X oui || --enveloppe --fiche 12 | libre 12 oui
    --fiche | 2 rien || --fiche 12 x | 2 12 non || --fiche -v | libre -v non || --enveloppe | 2 rien
  )",
      [](Rangee c) {
        QStringList mots = c[0].split(u' ', Qt::SkipEmptyParts);
        if (const qsizetype nom = mots.indexOf(u"Zoé"_s); nom >= 0)
          mots[nom] += u' ' + mots.takeAt(nom + 1);
        EXPECT_FALSE(RepondreAuxOptions(mots));
        const auto refus = RefuserDeDemarrer(mots, true);
        auto fiche = LireFicheVoulue(mots);
        if (fiche) fiche = LireFicheVoulue(MotsDe(*fiche));
        return (refus ? QString::number(refus->statut) : u"libre"_s) + u' ' +
               (fiche ? fiche->cible + u' ' + OuiNon(fiche->enveloppe) : u"rien"_s);
      });
}

// The words of the command line, the environment; the status, and how the text begins.
TEST(Textes, LigneDeCommande) {
  Cas(R"(
    -x --version | | 0 Velmira 0 || -h | | 0 Velmira, || --aide | DISPLAY=:0 | 2 velmira :
    | DISPLAY= | 1 Velmira a || | A=B;WAYLAND_DISPLAY=w | libre || | QT_QPA_PLATFORM=eglfs | libre
  )",
      [](Rangee c) {
        const QStringList mots = c[0].split(u' ', Qt::SkipEmptyParts);
        auto reponse = RepondreAuxOptions(mots);
        if (!reponse) reponse = RefuserDeDemarrer(mots, NommeUnEcran(c[1].split(u';')));
        return reponse ? QString::number(reponse->statut) + u' ' + reponse->texte.left(9).trimmed()
                       : u"libre"_s;
      });
}
