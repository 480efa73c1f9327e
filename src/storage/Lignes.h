#pragma once
// The rows of the six tables. The order of the columns is part of the format: it stands in the
// `Table<...>` below its row and nowhere else, and whatever works by ordinal walks that list.
//
// In every row a null text is a null QString; a null number or boolean reads as 0 or false.

#include <QString>

#include <array>
#include <bitset>
#include <tuple>

using Cle = qint64;

/// A correspondent.
struct Correspondant {
  Cle Index = 0;
  QString Ligne1, Ligne2, Ligne3, Ligne4, Ligne5;  ///< address; the first with the civility
  QString CodePostal, Ville, Pays;
  QString Categories;  ///< "*" before and after each category, empty for none
  QString NomVelmira;  ///< the name in the list
  QString Tel, Fax, Mail, Commentaires, Portable;
  QString AdresseImportee;  ///< free-form, shown only
  int OptionAdresse = 0;    ///< 0 postal code before the town, 1 behind it
  QString Web, TelTravail;
  QString Photo;  ///< full path of a picture
  bool ListeRougeTel = false, ListeRougeTravail = false;
  QString DDN;                ///< birth date as jj/mm/aaaa
  QString DataProt;           ///< protection mark, see Protection.h
  bool AlerteActive = false;  ///< the person stands in Listecoal too

  friend bool operator==(const Correspondant &, const Correspondant &) = default;
};

/// A sender of envelopes.
struct Expediteur {
  Cle Index = 0;
  QString Ligne1, Ligne2, Ligne3, Ligne4, Ligne5, CodePostal, Ville, Pays;
  bool ParDefaut = false;
  QString OptionAdresse;  ///< "0" or "1", as in Correspondant
};

/// A pair of town and postal code.
struct VilleCode {
  Cle Index = 0;
  QString CodePostal, Ville;
  QString Liens;  ///< keys of the rows of the same town joined by "*"; empty when there is one row
};

/// A kind of event.
struct TypeAlerte {
  Cle ID = 0;
  QString Type_alerte;
  bool Disponible = false;
};

/// A person that events can concern.
struct PersonneAlerte {
  Cle ID = 0;
  QString Nom, DDN;
  bool Disponible = false;
};

/// An event.
struct Evenement {
  Cle ID = 0;
  Cle Nom = 0;     ///< PersonneAlerte
  Cle Alerte = 0;  ///< TypeAlerte
  QString Date;    ///< jj/mm/aaaa
  bool Annuel = false, Age = false;
  int Delai = 0;  ///< days before the date
  bool Actif = false;
};

template <typename Ligne, typename Champ>
struct Colonne {
  const char16_t *nom;
  Champ Ligne::*champ;
};
template <typename Ligne, typename Champ>
Colonne(const char16_t *, Champ Ligne::*) -> Colonne<Ligne, Champ>;

/// Name and columns of the table that holds rows of a type; column 0 is the key.
template <typename Ligne>
struct Table;

template <>
struct Table<Correspondant> {
  using L = Correspondant;
  static constexpr const char16_t *nom = u"Adresse";
  static constexpr auto colonnes = std::tuple{
      Colonne{u"Index", &L::Index},
      Colonne{u"Ligne1", &L::Ligne1},
      Colonne{u"Ligne2", &L::Ligne2},
      Colonne{u"Ligne3", &L::Ligne3},
      Colonne{u"Ligne4", &L::Ligne4},
      Colonne{u"Ligne5", &L::Ligne5},
      Colonne{u"CodePostal", &L::CodePostal},
      Colonne{u"Ville", &L::Ville},
      Colonne{u"Pays", &L::Pays},
      Colonne{u"Categories", &L::Categories},
      Colonne{u"NomVelmira", &L::NomVelmira},
      Colonne{u"Tel", &L::Tel},
      Colonne{u"Fax", &L::Fax},
      Colonne{u"Mail", &L::Mail},
      Colonne{u"Commentaires", &L::Commentaires},
      Colonne{u"Portable", &L::Portable},
      Colonne{u"AdresseImportee", &L::AdresseImportee},
      Colonne{u"OptionAdresse", &L::OptionAdresse},
      Colonne{u"Web", &L::Web},
      Colonne{u"TelTravail", &L::TelTravail},
      Colonne{u"Photo", &L::Photo},
      Colonne{u"ListeRougeTel", &L::ListeRougeTel},
      Colonne{u"ListeRougeTravail", &L::ListeRougeTravail},
      Colonne{u"DDN", &L::DDN},
      Colonne{u"DataProt", &L::DataProt},
      Colonne{u"AlerteActive", &L::AlerteActive},
  };
};

template <>
struct Table<Expediteur> {
  using L = Expediteur;
  static constexpr const char16_t *nom = u"Expediteur";
  static constexpr auto colonnes = std::tuple{
      Colonne{u"Index", &L::Index},
      Colonne{u"Ligne1", &L::Ligne1},
      Colonne{u"Ligne2", &L::Ligne2},
      Colonne{u"Ligne3", &L::Ligne3},
      Colonne{u"Ligne4", &L::Ligne4},
      Colonne{u"Ligne5", &L::Ligne5},
      Colonne{u"CodePostal", &L::CodePostal},
      Colonne{u"Ville", &L::Ville},
      Colonne{u"Pays", &L::Pays},
      Colonne{u"ParDefaut", &L::ParDefaut},
      Colonne{u"OptionAdresse", &L::OptionAdresse},
  };
};

template <>
struct Table<VilleCode> {
  using L = VilleCode;
  static constexpr const char16_t *nom = u"Ville";
  static constexpr auto colonnes = std::tuple{
      Colonne{u"Index", &L::Index},
      Colonne{u"CodePostal", &L::CodePostal},
      Colonne{u"Ville", &L::Ville},
      Colonne{u"Liens", &L::Liens},
  };
};

template <>
struct Table<TypeAlerte> {
  using L = TypeAlerte;
  static constexpr const char16_t *nom = u"Alerte";
  static constexpr auto colonnes = std::tuple{
      Colonne{u"ID", &L::ID},
      Colonne{u"Type_alerte", &L::Type_alerte},
      Colonne{u"Disponible", &L::Disponible},
  };
};

template <>
struct Table<PersonneAlerte> {
  using L = PersonneAlerte;
  static constexpr const char16_t *nom = u"Listecoal";
  static constexpr auto colonnes = std::tuple{
      Colonne{u"ID", &L::ID},
      Colonne{u"Nom", &L::Nom},
      Colonne{u"DDN", &L::DDN},
      Colonne{u"Disponible", &L::Disponible},
  };
};

template <>
struct Table<Evenement> {
  using L = Evenement;
  static constexpr const char16_t *nom = u"ListeAlerte";
  static constexpr auto colonnes = std::tuple{
      Colonne{u"ID", &L::ID},       Colonne{u"Nom", &L::Nom},       Colonne{u"Alerte", &L::Alerte},
      Colonne{u"Date", &L::Date},   Colonne{u"Annuel", &L::Annuel}, Colonne{u"Age", &L::Age},
      Colonne{u"Delai", &L::Delai}, Colonne{u"Actif", &L::Actif},
  };
};

/// Calls `f` with `Table<...>{}` of each of the six, in the order of the format.
template <typename Fonction>
void PourChaqueTable(Fonction &&f) {
  f(Table<Correspondant>{});
  f(Table<Expediteur>{});
  f(Table<VilleCode>{});
  f(Table<TypeAlerte>{});
  f(Table<PersonneAlerte>{});
  f(Table<Evenement>{});
}

template <typename L>
inline constexpr std::size_t kNombreColonnes = std::tuple_size_v<decltype(Table<L>::colonnes)>;

/// The names of the columns by their ordinals.
template <typename L>
constexpr std::array<const char16_t *, kNombreColonnes<L>> NomsColonnes() {
  return std::apply([](const auto &...colonne) { return std::array{colonne.nom...}; },
                    Table<L>::colonnes);
}

/// The ordinal of the column that holds a field.
template <typename L, typename Champ>
constexpr std::size_t Ordinal(Champ L::*cherche) {
  std::size_t ordinal = 0, trouve = kNombreColonnes<L>;
  const auto essayer = [&](const auto &colonne) {
    if constexpr (requires { colonne.champ == cherche; })
      if (colonne.champ == cherche) trouve = ordinal;
    ++ordinal;
  };
  std::apply([&](const auto &...colonne) { (essayer(colonne), ...); }, Table<L>::colonnes);
  return trouve;
}

/// A choice among the columns of a table, by their ordinals.
template <typename L>
using ChoixColonnes = std::bitset<kNombreColonnes<L>>;

template <typename L, typename... Champ>
ChoixColonnes<L> Seulement(Champ L::*...champ) {
  ChoixColonnes<L> choix;
  (choix.set(Ordinal(champ)), ...);
  return choix;
}
