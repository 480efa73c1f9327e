#pragma once

#include "address/OptionCP.h"

#include <QString>

#include <array>
#include <type_traits>

/// An address as it is entered: what a correspondent and a sender have in common.
struct AdresseSaisie {
  std::array<QString, 5> lignes = {};
  QString codePostal = {}, ville = {}, pays = {};
  OptionCP optionCP = OptionCP::CodeDevant;

  bool operator==(const AdresseSaisie &) const = default;

  /// The address of a row.
  template <typename Ligne>
  static AdresseSaisie De(const Ligne &l) {
    AdresseSaisie adresse;
    adresse.lignes = {l.Ligne1, l.Ligne2, l.Ligne3, l.Ligne4, l.Ligne5};
    adresse.codePostal = l.CodePostal;
    adresse.ville = l.Ville;
    adresse.pays = l.Pays;
    adresse.optionCP = OptionDe(l.OptionAdresse);
    return adresse;
  }

  /// Puts the address into a row.
  template <typename Ligne>
  void Reporter(Ligne &l) const {
    l.Ligne1 = lignes[0];
    l.Ligne2 = lignes[1];
    l.Ligne3 = lignes[2];
    l.Ligne4 = lignes[3];
    l.Ligne5 = lignes[4];
    l.CodePostal = codePostal;
    l.Ville = ville;
    l.Pays = pays;
    if constexpr (std::is_same_v<decltype(l.OptionAdresse), QString>)
      l.OptionAdresse = QString::number(Nombre(optionCP));
    else
      l.OptionAdresse = Nombre(optionCP);
  }
};
