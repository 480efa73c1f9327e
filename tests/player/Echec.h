#pragma once

#include <QString>

#include <utility>

/// Why a scenario fails. It is no std::exception, so that the program's own nets let it through;
/// the player catches it before it reaches the toolkit.
struct Echec {
  QString texte;
};

inline void Exiger(bool condition, const QString &sinon) {
  if (!condition) throw Echec{sinon};
}

inline void ExigerEgal(const QString &quoi, const QString &attendu, const QString &trouve) {
  Exiger(attendu == trouve, QStringLiteral("%1: \"%2\" expected, \"%3\" found")
                                .arg(quoi, QString(attendu).replace(u'\n', QStringLiteral("\\n")),
                                     QString(trouve).replace(u'\n', QStringLiteral("\\n"))));
}
