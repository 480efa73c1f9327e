#include "ui/Degrade.h"

std::vector<Boites::Couleur> PeindreDegrade(const Boites::Couleur &depart,
                                            const Boites::Couleur &fin, EtendueDegrade etendue,
                                            int lignes) {
  const int nombre = lignes - etendue.marge - etendue.debut + 1;
  std::vector<Boites::Couleur> couleurs;
  for (int pas = 1; pas <= nombre; ++pas) {
    // By the product: a running sum of steps would end a hair below the last colour.
    const auto canal = [&](int de, int a) {
      return static_cast<int>(de + static_cast<double>(a - de) * pas / nombre);
    };
    couleurs.push_back({canal(depart.rouge, fin.rouge), canal(depart.vert, fin.vert),
                        canal(depart.bleu, fin.bleu)});
  }
  return couleurs;
}
