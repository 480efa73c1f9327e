#pragma once
// What the command lines of the programs ask for, instead of a run or of it.

#include <QStringList>

#include <optional>

struct Reponse {
  QString texte;             ///< for the terminal, lines with their ends
  int statut = 0;            ///< of the program's end; a text with another one than 0 is an error's
  bool compteRendu = false;  ///< but this one is what was asked for
};

/// A program that is started by a command of its own.
enum class Executable { Velmira, Vigilo, Memora, Brikel, Sauvan };

/// What "--help" and "--version" ask for; nothing where `mots` has none of them. Needs no screen.
std::optional<Reponse> RepondreAuxOptions(const QStringList &mots,
                                          Executable programme = Executable::Velmira);

/// Why the program cannot run: the first of `mots`, without its own name and what the toolkit took
/// of it, which it does not know; or a screen that is missing.
std::optional<Reponse> RefuserDeDemarrer(const QStringList &mots, bool ecran,
                                         Executable programme = Executable::Velmira);

/// Whether `environnement` ("NAME=value") names a screen, or a platform that needs none.
bool NommeUnEcran(const QStringList &environnement);

/// A record that is to be opened.
struct FicheVoulue {
  QString cible;           ///< its key, or a name
  bool enveloppe = false;  ///< its envelope is to be prepared
};

/// What "--fiche" and "--enveloppe" of Velmira ask for.
std::optional<FicheVoulue> LireFicheVoulue(const QStringList &mots);
/// The same as words for another run, and back.
QStringList MotsDe(const FicheVoulue &fiche);
