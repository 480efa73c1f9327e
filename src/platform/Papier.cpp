#include "platform/Papier.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

/// How far a size is off in the direction in which it is further off.
Millimetres Ecart(const Taille &a, const Taille &b) {
  const auto ecart = [](Millimetres une, Millimetres autre) {
    return Millimetres(std::abs((une - autre).valeur));
  };
  return std::max(ecart(a.largeur, b.largeur), ecart(a.hauteur, b.hauteur));
}

}  // namespace

Papier Papier::A4(Orientation orientation) {
  const Papier debout;
  if (orientation == Orientation::Portrait) return debout;
  return {{debout.page.hauteur, debout.page.largeur}, Tour::Droite};
}

Taille Papier::Feuille() const {
  return tour == Tour::Aucun ? page : Taille{page.hauteur, page.largeur};
}

Marges Papier::SurPage(const Marges &m) const {
  switch (tour) {
    case Tour::Droite:
      return {m.haut, m.droite, m.bas, m.gauche};
    case Tour::Gauche:
      return {m.bas, m.gauche, m.haut, m.droite};
    default:
      return m;
  }
}

QString Papier::Nom() const {
  if (!enveloppe) return tour == Tour::Aucun ? u"A4 portrait"_s : u"A4 paysage"_s;
  const QString bord = tour == Tour::Aucun    ? u"le grand côté"_s
                       : tour == Tour::Droite ? u"le petit côté gauche"_s
                                              : u"le petit côté droit"_s;
  return u"enveloppe de %1 x %2 mm par %3"_s.arg(QString::number(page.largeur.valeur),
                                                 QString::number(page.hauteur.valeur), bord);
}

std::optional<std::size_t> PlusProche(const std::vector<Taille> &tailles, const Taille &voulue) {
  constexpr Millimetres kTolerance(1);
  const auto proche = std::ranges::min_element(
      tailles, {}, [&](const Taille &taille) { return Ecart(taille, voulue); });
  if (proche == tailles.end() || Ecart(*proche, voulue) > kTolerance) return std::nullopt;
  return static_cast<std::size_t>(proche - tailles.begin());
}

Point Correction::Arrivee(Point envoye) const {
  return Point{envoye.x * echelleX, envoye.y * echelleY} + decalage;
}

Point Correction::Envoi(Point voulu) const {
  const Point depuisLeCoin = voulu - decalage;
  return {depuisLeCoin.x / echelleX, depuisLeCoin.y / echelleY};
}

Correction Corriger(const Correction &enVigueur, const MesureEtalon &voulue,
                    const MesureEtalon &mesuree) {
  Correction correction{enVigueur.echelleX * (mesuree.regleX / voulue.regleX),
                        enVigueur.echelleY * (mesuree.regleY / voulue.regleY)};
  correction.decalage = mesuree.croix - correction.Arrivee(enVigueur.Envoi(voulue.croix));
  return correction;
}

bool EstPlausible(const MesureEtalon &voulue, const MesureEtalon &mesuree) {
  constexpr double kDecalage = 40, kEchelle = 0.1;
  const auto proche = [](Millimetres longueur, Millimetres attendue, double ecart) {
    return std::abs((longueur - attendue).valeur) <= ecart;
  };
  return proche(mesuree.croix.x, voulue.croix.x, kDecalage) &&
         proche(mesuree.croix.y, voulue.croix.y, kDecalage) &&
         proche(mesuree.regleX, voulue.regleX, voulue.regleX.valeur * kEchelle) &&
         proche(mesuree.regleY, voulue.regleY, voulue.regleY.valeur * kEchelle);
}

Point Pose::operator()(Point place) const {
  const Point page = correction_.Envoi(origine_ + place);
  switch (papier_.tour) {
    case Tour::Droite:
      return {papier_.page.hauteur - page.y, page.x};
    case Tour::Gauche:
      return {page.y, papier_.page.largeur - page.x};
    default:
      return page;
  }
}
