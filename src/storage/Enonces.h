#pragma once
// Statements over whole rows, made of the columns of Lignes.h. For the storage's own .cpp files.

#include "storage/Requete.h"
#include "storage/Schema.h"

#include <QList>

#include <optional>
#include <type_traits>

/// The row that the statement stands on; its columns are those of the table, in their order, from
/// the one numbered `premiere`.
template <typename L>
L LigneCourante(const Requete &requete, int premiere = 0) {
  L ligne;
  auto prendre = [&, colonne = premiere]<typename Champ>(Champ &champ) mutable {
    if constexpr (std::is_same_v<Champ, QString>)
      champ = requete.Texte(colonne++);
    else if constexpr (std::is_same_v<Champ, bool>)
      champ = requete.Entier(colonne++) != 0;
    else
      champ = static_cast<Champ>(requete.Entier(colonne++));
  };
  std::apply([&](const auto &...colonne) { (prendre(ligne.*colonne.champ), ...); },
             Table<L>::colonnes);
  return ligne;
}

/// The statement that reads whole rows, without its condition.
template <typename L>
QString Selection() {
  using namespace Qt::StringLiterals;
  static const QString kTexte =
      u"SELECT "_s + ListeColonnes(Table<L>{}) + u" FROM "_s + Nom(Table<L>{});
  return kTexte;
}

/// The row of a key.
template <typename L>
std::optional<L> LireLigne(Base &base, Cle cle) {
  Requete requete(base, Selection<L>() + ParCle(Table<L>{}));
  requete.Lier(cle);
  if (!requete.Suivante()) return std::nullopt;
  return LigneCourante<L>(requete);
}

/// All rows in the order of the keys, or those that a condition takes.
template <typename L>
QList<L> LireLignes(Base &base, const QString &condition = {}) {
  Requete requete(base, Selection<L>() + condition + OrdreDesCles(Table<L>{}));
  QList<L> lignes;
  while (requete.Suivante()) lignes.append(LigneCourante<L>(requete));
  return lignes;
}

/// Deletes the row of a key; false when it has gone already.
template <typename L>
bool SupprimerLigne(Base &base, Table<L> table, Cle cle) {
  using namespace Qt::StringLiterals;
  return Requete(base, u"DELETE FROM "_s + Nom(table) + ParCle(table)).Lier(cle).Executer() > 0;
}
