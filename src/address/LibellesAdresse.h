#pragma once

#include "address/OptionCP.h"
#include "storage/Conflits.h"

/// What the user reads of the address of a row.
template <typename L>
Libelles<L> LibellesAdresse() {
  using namespace Qt::StringLiterals;
  const auto place = [](const L &ligne) {
    return OptionDe(ligne.OptionAdresse) == OptionCP::CodeDevant ? u"à la française"_s
                                                                 : u"à l'américaine"_s;
  };
  return {{Ordinal(&L::Ligne1), {u"Nom et prénom, première ligne de l'adresse"_s}},
          {Ordinal(&L::Ligne2), {u"Adresse, ligne 2"_s}},
          {Ordinal(&L::Ligne3), {u"Adresse, ligne 3"_s}},
          {Ordinal(&L::Ligne4), {u"Adresse, ligne 4"_s}},
          {Ordinal(&L::Ligne5), {u"Adresse, ligne 5"_s}},
          {Ordinal(&L::CodePostal), {u"Code postal"_s}},
          {Ordinal(&L::Ville), {u"Ville"_s}},
          {Ordinal(&L::Pays), {u"Pays"_s}},
          {Ordinal(&L::OptionAdresse), {u"Place du code postal"_s, place}}};
}
