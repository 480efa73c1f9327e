#pragma once

#include <QString>

/// What a file of another program may be, told by what stands in it and never by its name.
enum class GenreFichier {
  Inconnu,
  Cartes,   ///< see LecteurCartes.h
  Tableau,  ///< see LecteurCsv.h
  Base,     ///< see AncienneBase.h
};

/// Throws `ErreurFichier` for what cannot be read, or is no file.
GenreFichier GenreDe(const QString &chemin);

/// What the user reads of a file of which nothing can be taken.
QString TexteInconnu(const QString &chemin);
