// What the program makes of an address: the postal norm, names and towns that are proposed.

#include "Outils.h"
#include "address/NomsProposes.h"
#include "address/NormePostale.h"
#include "address/Villes.h"

// Capitals: D the last line, 3 the last three, T all; a without accents.
TEST(Adresses, Norme) {
  Cas(R"(
    M. Léo*12, rue de l'Église*St-Élie$38160*L'Haÿ-sur-$· | 3 | M. Léo*12 RUE DE L ÉGLISE*ST ÉLIE$38160*L HAŸ SUR$·
    M. Léo*12, rue de l'Église*St-Élie$38160*L'Haÿ$· | Da | M. Léo*12 rue de l Église*St Élie$38160*L HAY$·
    Mlle Œuf*Appt. é*Bât. C*24/26, rue*ZI-Sud$1*V$Côte-d'Or | 3 | Mlle Œuf*Appt. é*Bât. C*24 26 RUE*ZI SUD$1*V$CÔTE-D'OR
    Mlle Œuf*Appt. é*Bât. C*24/26, rue*ZI-Sud$1*V$Côte-d'Or | Ta | MLLE OEUF*APPT. E*BAT. C*24 26 RUE*ZI SUD$1*V$COTE-D'OR
    M. X*a-b*c-d*e-f*g-h$·$· | D | M. X*a-b*c d*e f*G H$·$· || A.*Straße$·$· | 3a | A.*STRASSE$·$·
    M.-A.$·$· | 3 | M.-A.$·$· || ·$·$· | T | ·$·$· || ·$-1*v-$· | Da | ·$1*V$· || ·$9-5*L-a$été | Da | ·$9-5*L A$ETE || a | T | A || | T |
  )",
      [](Rangee c) {
        const QString &choix = c[1];
        const auto capitales = choix.contains(u'T')   ? CapitalesNorme::Toutes
                               : choix.contains(u'3') ? CapitalesNorme::TroisDernieres
                                                      : CapitalesNorme::DerniereLigne;
        return SelonNorme(c[0], {true, capitales, !choix.contains(u'a')});
      });
}

// How long the lines are: five, code and town together, the country. L is too long, S a seventh.
TEST(Adresses, EcartsALaNorme) {
  Cas(R"(
    38 1 0 0 0 38 9 | ------- || 39 0 38 0 40 39 0 | L---LL- || 1 1 1 1 1 9 0 | -------
    1 1 1 1 1 9 1 | ------S || 1 1 1 1 1 0 38 | ------- || 1 1 1 1 1 9 39 | ------L
  )",
      [](Rangee c) {
        QStringList lignes;
        for (const QString &n : c[0].split(u' ')) lignes.append(QString(n.toInt(), u'x'));
        AdresseSaisie a{.codePostal = lignes[5].left(5), .ville = lignes[5].mid(6)};
        std::copy_n(lignes.begin(), 5, a.lignes.begin());
        a.pays = lignes[6];
        QString marques;
        for (const QString &remarque : RemarquesNorme(a))
          marques += remarque.isEmpty() ? u'-' : remarque.contains(u"38") ? u'L' : u'S';
        return marques;
      });
}

TEST(Adresses, UnNomProposeLAutre) {
  Cas(R"(
    Durand Paul | Paul Durand || DE LA TOUR Jean | Jean DE LA TOUR || Le Goff Anne Marie | Anne Marie Le Goff
    Durand-Petit J. | J. Durand-Petit || DURAND PAUL | PAUL DURAND || Durand, Paul | Paul Durand
    Durand Paul et Zoé (voisins) | Paul et Zoé Durand || Durand et Fils | Durand et Fils
    Garage du Port | Garage du Port || Zoé | Zoé || (x) | (x) || |
  )",
      [](Rangee c) { return NomPourEnveloppe(c[0]); });
  Cas(R"(
    M. Paul DURAND | DURAND Paul || M. et Mme Paul Durand | Durand Paul || Paul Durand (1er) | Durand Paul
    Mme Anne Marie Le Goff | Le Goff Anne Marie || Jean DE LA TOUR | DE LA TOUR Jean || Mme |
    M. Jean de La Fontaine | de La Fontaine Jean || M. J. P. DURAND | DURAND J. P. || Mme Zoé | Zoé
    Société Martin Frères | Martin Frères || PAUL DURAND | DURAND PAUL || M. LE GOFF Anne | LE GOFF Anne || Club de boules | Club de boules || |
  )",
      [](Rangee c) {
        return NomPourListe(c[0], {u"M."_s, u"M. et Mme"_s, u"Mme"_s, u"Société"_s});
      });
}

// List, envelope, whether there is a birth date; the first name, and the initials.
TEST(Adresses, PrenomsEtInitiales) {
  Cas(R"(
    Durand Paul | M. Paul Durand | non | Paul DP || Durand Paul | | non | DP || Durand Paul | | oui | Paul DP
    DURAND Paul | | non | Paul DP || Durand, Anne-Lise | | non | Anne-Lise DA || Martin Paul | M. Martin Paul | oui | MP
    Garage Martin | Garage Martin | non | GM || de La Fontaine Jean | M. Jean de La Fontaine | non | Jean FJ
    Martin (voisin) | | oui | M || Paul | M. Paul | oui | P || Martin Odile et Paul | M. et Mme Paul Martin | non | MO
    21 Club | | non | 2C || - ! | | non | || écho élan | | non | ÉÉ
  )",
      [](Rangee c) {
        const QString prenom =
            PrenomCertain(c[0], c[1], c[2] == u"oui"_s, {u"M."_s, u"M. et Mme"_s});
        return (prenom + u' ' + Initiales(c[0])).trimmed();
      });
}

TEST(Adresses, VillesDUnCode) {
  Cas(R"(
    Saint-Élie;Rezé | REZE;ST ELIE;STE ELIE;REZE | Saint-Élie;Rezé;STE ELIE || | L HAY;BAS | L HAY;BAS
    L'Haÿ;l haÿ | L HAY | L'Haÿ || Nantes | | Nantes || | |
  )",
      [](Rangee c) {
        const auto villes = [](const QString &t) { return t.split(u';', Qt::SkipEmptyParts); };
        return ReunirVilles(villes(c[0]), villes(c[1])).join(u';');
      });
  Cas(R"(
    ev | ry || reze | || Rez | é || NAN | TES || aix·e | n Provence || s | t Jean de Monts
    st j | ean de Monts || x | || | || Évry | || AIX·E | N PROVENCE
  )",
      [](Rangee c) {
        return FinDeVille(
            c[0], {u"Rezé"_s, u"Évry"_s, u"NANTES"_s, u"AIX EN PROVENCE"_s, u"ST JEAN DE MONTS"_s});
      });
}
