#pragma once
// The text of a scenario as commands and words.

#include <QList>
#include <QString>

#include <optional>

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
