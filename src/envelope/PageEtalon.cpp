#include "envelope/PageEtalon.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Far enough from the edges for the margins of most printers.
constexpr Millimetres kRetrait(13), kRetraitTexte(24);
constexpr Millimetres kFin(0.1), kFleche(16), kPointe(4);
const QString kFonte = u"Arial"_s;

constexpr int kCentimetre = 10, kDemi = 5;
constexpr int kCoin = 24;  // nearer to a corner two edges have their numbers at one place

Point X(double mm) {
  return {Millimetres(mm), {}};
}
Point Y(double mm) {
  return {{}, Millimetres(mm)};
}

Millimetres LongueurRegle(Millimetres cote) {
  constexpr double kPlusLongue = 100, kPlace = 40;
  const double dizaines = std::floor((cote.valeur - kPlace) / kCentimetre);
  return Millimetres(std::clamp(dizaines * kCentimetre, double(kCentimetre), kPlusLongue));
}

/// Draws the parts of the page one after the other.
class Dessin {
 public:
  Dessin(PageEtalon &page, const MesureTexte &mesure) : page_(page), mesure_(mesure) {}

  void Trait(Point de, Point a, Millimetres epaisseur = Millimetres(0.2)) {
    page_.traits.push_back({de, a, epaisseur});
  }
  void Texte(Point place, const Police &police, const QString &texte) {
    page_.lignes.push_back({texte, place.x, place.y, police});
  }
  /// With its middle at this place.
  void TexteCentre(Point place, const Police &police, const QString &texte) {
    const Point moitie{mesure_.Largeur(texte, police) / 2, mesure_.HauteurLigne(police) / 2};
    Texte(place - moitie, police, texte);
  }

  /// Millimetres along an edge, counted from the paper's own: a tick each, that points inwards by
  /// `sens`, a number for each ten.
  void Bord(Millimetres cote, bool couche, Millimetres place, double sens) {
    const auto point = [&](double le_long, double dedans) {
      const Millimetres travers = place + Millimetres(dedans * sens);
      return couche ? Point{Millimetres(le_long), travers} : Point{travers, Millimetres(le_long)};
    };
    const int fin = static_cast<int>(std::floor(cote.valeur - kRetrait.valeur));
    const int debut = static_cast<int>(kRetrait.valeur);
    Trait(point(debut, 0), point(fin, 0), kFin);
    for (int mm = debut; mm <= fin; ++mm) {
      const double longueur = mm % kCentimetre == 0 ? 4 : mm % kDemi == 0 ? 2.8 : 1.6;
      Trait(point(mm, 0), point(mm, longueur), kFin);
      if (mm % kCentimetre == 0 && mm > kCoin && mm < cote.valeur - kCoin)
        TexteCentre(point(mm, couche ? 5.4 : 6.4), {kFonte, 6}, QString::number(mm));
    }
  }

  void Croix(Point milieu) {
    constexpr double kBras = 12;
    Trait(milieu - X(kBras), milieu + X(kBras));
    Trait(milieu - Y(kBras), milieu + Y(kBras));
    for (int mm = 1; mm <= kCentimetre; ++mm) {
      const double demi = mm % kDemi == 0 ? 1.6 : 0.8;
      for (const int place : {-mm, mm}) {
        Trait(milieu + X(place) - Y(demi), milieu + X(place) + Y(demi), kFin);
        Trait(milieu + Y(place) - X(demi), milieu + Y(place) + X(demi), kFin);
      }
    }
  }

  /// A length to be measured, between two bars.
  void Regle(Point milieu, Millimetres longueur, bool couchee) {
    const auto sur = [&](double le_long, double travers) {
      return milieu + (couchee ? X(le_long) + Y(travers) : X(travers) + Y(le_long));
    };
    const double moitie = longueur.valeur / 2;
    Trait(sur(-moitie, 0), sur(moitie, 0));
    for (double mm = -moitie; mm <= moitie; mm += kCentimetre) {
      const double demi = std::abs(mm) == moitie ? 3 : 1.2;
      Trait(sur(mm, -demi), sur(mm, demi));
    }
    TexteCentre(sur(0, couchee ? 3.6 : 7.5), {kFonte, 8},
                QString::number(longueur.valeur) + u" mm"_s);
  }

  /// Points to where the sheet goes in first.
  void Fleche(Point milieu, Tour tour) {
    const auto vers = [tour](double avant, double cote) {
      switch (tour) {
        case Tour::Droite:
          return X(-avant) + Y(cote);
        case Tour::Gauche:
          return X(avant) + Y(cote);
        default:
          return Y(-avant) + X(cote);
      }
    };
    constexpr Millimetres kGras(0.6);
    const double moitie = kFleche.valeur / 2, pointe = kPointe.valeur;
    const Point bout = milieu + vers(moitie, 0);
    Trait(milieu + vers(-moitie, 0), bout, kGras);
    for (const double cote : {-pointe / 2, pointe / 2})
      Trait(bout, milieu + vers(moitie - pointe, cote), kGras);
  }

 private:
  PageEtalon &page_;
  const MesureTexte &mesure_;
};

}  // namespace

MesureEtalon EtalonVoulu(const Taille &page) {
  return {page.Milieu(), LongueurRegle(page.largeur), LongueurRegle(page.hauteur)};
}

PageEtalon DessinerEtalon(const Papier &papier, const QString &appareil,
                          const Correction &enVigueur, const MesureTexte &mesure) {
  const Taille &taille = papier.page;
  const MesureEtalon voulue = EtalonVoulu(taille);
  PageEtalon page;
  Dessin dessin(page, mesure);
  dessin.Bord(taille.largeur, true, kRetrait, 1);
  dessin.Bord(taille.largeur, true, taille.hauteur - kRetrait, -1);
  dessin.Bord(taille.hauteur, false, kRetrait, 1);
  dessin.Bord(taille.hauteur, false, taille.largeur - kRetrait, -1);

  dessin.Croix(voulue.croix);
  constexpr double kFleches = 32;
  for (const double place : {-kFleches, kFleches})
    dessin.Fleche(voulue.croix + X(place), papier.tour);
  dessin.Regle(voulue.croix + Y(std::min(60., taille.hauteur.valeur * 0.22)), voulue.regleX, true);
  dessin.Regle(voulue.croix + X(std::min(70., taille.largeur.valeur * 0.28)), voulue.regleY, false);

  const QString correction = TexteCorrection(enVigueur, taille);
  const std::array<std::pair<QString, Police>, 5> textes{{
      {u"Étalonnage de « %1 »"_s.arg(appareil), {kFonte, 10, true}},
      {u"Papier : "_s + papier.Nom(), {kFonte, 8}},
      {u"Correction : "_s + (correction.isEmpty() ? u"aucune"_s : correction), {kFonte, 8}},
      {u"Les flèches montrent le côté qui entre le premier. Mesurez le centre de la croix"_s,
       {kFonte, 8}},
      {u"depuis le bord gauche et le bord haut du papier, puis les deux règles."_s, {kFonte, 8}},
  }};
  Point place{kRetraitTexte, kRetraitTexte};
  for (const auto &[texte, police] : textes) {
    dessin.Texte(place, police, texte);
    place.y += mesure.HauteurLigne(police);
  }
  return page;
}

FinImpression ImprimerEtalon(Imprimante &imprimante, const QString &appareil, const Papier &papier,
                             const Correction &enVigueur, const std::stop_token &arret) {
  const auto document = imprimante.Ouvrir(appareil, {.nom = u"Étalonnage"_s,
                                                     .papier = papier,
                                                     .correction = enVigueur,
                                                     .depuisLeBord = true,
                                                     .recto = true,
                                                     .arret = arret});
  const PageEtalon page = DessinerEtalon(papier, appareil, enVigueur, *document);
  EcrireLignes(page.lignes, *document);
  for (const auto &[de, a, epaisseur] : page.traits) document->Tracer(de, a, epaisseur);
  return document->Terminer();
}

QString TexteCorrection(const Correction &correction, const Taille &page) {
  const auto nombre = [](double valeur) {
    return QString::number(std::round(std::abs(valeur) * 10) / 10).replace(u'.', u',');
  };
  QStringList parties;
  const auto decaler = [&](Millimetres trop, const QString &si, const QString &sinon) {
    if (std::abs(trop.valeur) >= 0.05)
      parties << u"%1 mm %2"_s.arg(nombre(trop.valeur), trop.valeur > 0 ? si : sinon);
  };
  const Point trop = correction.Arrivee(page.Milieu()) - page.Milieu();
  decaler(trop.x, u"à gauche"_s, u"à droite"_s);
  decaler(trop.y, u"plus haut"_s, u"plus bas"_s);
  const QString largeur = nombre(100 / correction.echelleX),
                hauteur = nombre(100 / correction.echelleY);
  if (largeur == hauteur) {
    if (largeur != u"100"_s) parties << u"taille %1\u00a0%"_s.arg(largeur);
  } else {
    parties << u"largeur %1\u00a0%, hauteur %2\u00a0%"_s.arg(largeur, hauteur);
  }
  return parties.join(u", "_s);
}
