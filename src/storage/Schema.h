#pragma once
// The tables as the engine sees them, derived from the rows of Lignes.h.

#include "storage/Lignes.h"

#include <QString>
#include <QStringList>

/// Name of a table or a column, quoted for a statement. In brackets: a name in double quotes that
/// the table lacks would be taken for a text.
inline QString Entre(const char16_t *nom) {
  return u'[' + QString::fromUtf16(nom) + u']';
}

template <typename L>
QString Nom(Table<L>) {
  return Entre(Table<L>::nom);
}

/// The columns in the order of the ordinals, quoted and joined by commas. `premiere` skips columns,
/// 1 the key.
template <typename L>
QString ListeColonnes(Table<L>, int premiere = 0) {
  QStringList noms;
  std::apply([&](const auto &...colonne) { (noms.append(Entre(colonne.nom)), ...); },
             Table<L>::colonnes);
  return noms.mid(premiere).join(u", ");
}

/// Makes an empty database with the six tables: what is delivered as `Velmira_base.mdb`. Throws
/// `ErreurBase`; a file of that name must not exist.
void CreerBaseVide(const QString &chemin);
