#pragma once

#include <QString>
#include <QStringList>

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
