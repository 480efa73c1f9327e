#pragma once
// The tables as the engine sees them, derived from the rows of Lignes.h.

#include "storage/Lignes.h"

#include <QString>
#include <QStringList>

/// A name for a statement, where it may be a word of the language. In brackets: a name in double
/// quotes that the table lacks would be taken for a text. It holds no closing bracket itself.
inline QString Entre(const QString &nom) {
  return u'[' + nom + u']';
}
inline QString Entre(const char16_t *nom) {
  return Entre(QString::fromUtf16(nom));
}

template <typename L>
QString Nom(Table<L>) {
  return Entre(Table<L>::nom);
}

/// The columns in the order of the ordinals, joined by commas, each behind `prefixe` (an alias with
/// its point). `premiere` skips columns, 1 the key.
template <typename L>
QString ListeColonnes(Table<L>, qsizetype premiere = 0, const QString &prefixe = {}) {
  QStringList noms;
  for (const char16_t *nom : NomsColonnes<L>()) noms.append(prefixe + Entre(nom));
  return noms.mid(premiere).join(u", ");
}

/// The condition for one row, whose key is bound last.
template <typename L>
QString ParCle(Table<L>) {
  using namespace Qt::StringLiterals;
  return u" WHERE "_s + Entre(NomsColonnes<L>().front()) + u"=?"_s;
}

/// The order in which the rows were added.
template <typename L>
QString OrdreDesCles(Table<L>) {
  using namespace Qt::StringLiterals;
  return u" ORDER BY "_s + Entre(NomsColonnes<L>().front());
}

/// Makes an empty database with the six tables: what is delivered as `Velmira_base.mdb`. Throws
/// `ErreurBase`; a file of that name must not exist.
void CreerBaseVide(const QString &chemin);

/// The same in a file that is there and empty, without a journal beside it at any time.
void CreerTables(const QString &fichierVide);

/// The schema version that a database file bears which nobody has open, from its header; -1 for no
/// such file. Throws `ErreurFichier` when it is there and cannot be read.
qint32 VersionDuFichier(const QString &chemin);
