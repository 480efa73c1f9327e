#pragma once
// What the command line asks for instead of a run.

#include <QStringList>

#include <optional>

struct Reponse {
  QString texte;   ///< for the terminal, lines with their ends
  int statut = 0;  ///< of the program's end; a text with another one than 0 is an error's
};

/// What "--help" and "--version" ask for; nothing where `mots` has none of them. Needs no screen.
std::optional<Reponse> RepondreAuxOptions(const QStringList &mots);

/// Why the program cannot run: the first of `mots`, without its own name and what the toolkit took
/// of it, which it does not know; or a screen that is missing.
std::optional<Reponse> RefuserDeDemarrer(const QStringList &mots, bool ecran);

/// Whether `environnement` ("NAME=value") names a screen, or a platform that needs none.
bool NommeUnEcran(const QStringList &environnement);
