#pragma once
// Two users and one row: what one of them has changed since it was shown, and where the other has
// changed the same meanwhile.

#include "storage/Lignes.h"

#include <QList>
#include <QString>

#include <functional>
#include <map>
#include <tuple>
#include <type_traits>

template <typename L>
struct Ecarts {
  ChoixColonnes<L> changees;  ///< what the user has changed
  ChoixColonnes<L> conflits;  ///< of these, what another has changed to something else
};

/// The columns in which two rows differ. A null text is an empty one.
template <typename L>
ChoixColonnes<L> Differences(const L &une, const L &autre) {
  ChoixColonnes<L> differences;
  std::size_t ordinal = 0;
  std::apply(
      [&](const auto &...colonne) {
        (differences.set(ordinal++, une.*colonne.champ != autre.*colonne.champ), ...);
      },
      Table<L>::colonnes);
  return differences;
}

/// Compares a row as it was shown, as the user has left it and as it is stored by now.
template <typename L>
Ecarts<L> Comparer(const L &montree, const L &saisie, const L &stockee) {
  const auto changees = Differences(montree, saisie);
  return {changees, changees & Differences(montree, stockee) & Differences(saisie, stockee)};
}

/// Gives the chosen columns of `vers` the values of `depuis`.
template <typename L>
void Recopier(L &vers, const L &depuis, const ChoixColonnes<L> &choix) {
  std::size_t ordinal = 0;
  const auto recopier = [&](auto champ) {
    if (choix[ordinal++]) vers.*champ = depuis.*champ;
  };
  std::apply([&](const auto &...colonne) { (recopier(colonne.champ), ...); }, Table<L>::colonnes);
}

/// What the user reads of a column: its name and, where the stored value is no text to read, what
/// stands for it.
template <typename L>
struct Libelle {
  QString nom;
  std::function<QString(const L &)> valeur = {};
};

/// By the ordinals of the columns. One without a name is called as in the table.
template <typename L>
using Libelles = std::map<std::size_t, Libelle<L>>;

/// A field with both values, as the user reads them.
struct ChampEnConflit {
  QString nom, mienne, sienne;
};

/// The question that names the fields and shows both values of each: Oui keeps one's own, Non
/// takes the other's, Annuler goes back to the entry. Of long texts it shows the place where they
/// part.
QString TexteConflit(const QList<ChampEnConflit> &champs);

/// The chosen columns in their order.
template <typename L>
QList<ChampEnConflit> ChampsEnConflit(const ChoixColonnes<L> &conflits, const L &saisie,
                                      const L &stockee, const Libelles<L> &libelles) {
  QList<ChampEnConflit> champs;
  std::size_t ordinal = 0;
  const auto lisible = []<typename Champ>(const Champ &valeur) -> QString {
    if constexpr (std::is_same_v<Champ, QString>)
      return valeur;
    else if constexpr (std::is_same_v<Champ, bool>)
      return valeur ? QStringLiteral("oui") : QStringLiteral("non");
    else
      return QString::number(valeur);
  };
  const auto ajouter = [&](const auto &colonne) {
    const std::size_t ici = ordinal++;
    if (!conflits[ici]) return;
    const auto libelle = libelles.find(ici);
    const bool nomme = libelle != libelles.end();
    const auto valeur = [&](const L &ligne) {
      return nomme && libelle->second.valeur ? libelle->second.valeur(ligne)
                                             : lisible(ligne.*colonne.champ);
    };
    champs.append({nomme ? libelle->second.nom : QString::fromUtf16(colonne.nom), valeur(saisie),
                   valeur(stockee)});
  };
  std::apply([&](const auto &...colonne) { (ajouter(colonne), ...); }, Table<L>::colonnes);
  return champs;
}
