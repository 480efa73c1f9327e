#pragma once
// The text of a scenario as commands and words, and what makes one fail.

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

using namespace Qt::StringLiterals;  // throughout the player

/// Why a scenario fails. It is no std::exception, so that the program's own nets let it through;
/// the player catches it before it reaches the toolkit.
struct Echec {
  QString texte;
  int ligne = 0;  ///< of the scenario, where it is known
};

inline void Exiger(bool condition, const QString &sinon) {
  if (!condition) throw Echec{sinon};
}

inline void ExigerEgal(const QString &quoi, const QString &attendu, const QString &trouve) {
  const auto montrable = [](QString texte) { return texte.replace(u'\n', u"\\n"_s); };
  Exiger(attendu == trouve,
         u"%1: \"%2\" expected, \"%3\" found"_s.arg(quoi, montrable(attendu), montrable(trouve)));
}

inline QString EnListe(const QStringList &textes) {
  return u'"' + textes.join(u"\" \""_s) + u'"';
}

inline void ExigerListe(const QString &quoi, const QStringList &attendus,
                        const QStringList &trouves) {
  Exiger(attendus == trouves,
         u"%1: %2 expected, %3 found"_s.arg(quoi, EnListe(attendus), EnListe(trouves)));
}

struct Mot {
  QString texte;
  bool cite = false;    ///< it stood in double quotes, as a whole or behind "="
  int rang = 1;         ///< n of "text"#n: the n-th element of this text
  qsizetype egal = -1;  ///< place of the first "=" outside the quotes, or -1

  /// A word that means what it says, as `racine` does; in quotes it would be a text.
  bool Est(QStringView mot) const { return !cite && texte == mot; }
  bool Joker() const { return texte == u'*'; }
  /// i of #i.
  std::optional<int> Indice() const;
};

using Mots = QList<Mot>;

struct Commande {
  int ligne = 0;  ///< from 1
  QString texte;  ///< as it stands there
  QString verbe;
  Mots mots;
};

/// The commands in their order, a `bloc` as often as it has rows. A "#" opens a comment at the
/// start of a line or with a blank behind it; elsewhere it begins an index or a colour. Throws
/// `Echec` with the line.
QList<Commande> Analyser(const QString &scenario);
