#pragma once
// What a user does while many correspondents are listed: a key of the search, a category renamed, a
// record saved; and the search of the postal codes. Each function is one half of a row.

#include "Donnees.h"

#include <QByteArray>
#include <QStringList>

#include <benchmark/benchmark.h>

/// So many names are looked for.
constexpr int kNomsCherches = 16;

/// The beginnings of names that lie spread over the list.
QStringList DebutsCherches(const Donnees &donnees);

/// A turn is the last key of a beginning, until what it found is painted: each finds another name.
void TaperVelmira(benchmark::State &etat, const Donnees &donnees, const QStringList &debuts);
void TaperNu(benchmark::State &etat, const Donnees &donnees, const QStringList &debuts);

/// A turn is the last key of what no name begins with, until what it found in all records is
/// painted; the bare half lets the engine compare all columns.
void ChercherVelmira(benchmark::State &etat, const Donnees &donnees);
void ChercherNu(benchmark::State &etat, const Donnees &donnees);

/// Renames the rare category, and back: an even number of turns leaves the table as it was.
void RenommerVelmira(benchmark::State &etat, const Donnees &donnees);
void RenommerNu(benchmark::State &etat, const Donnees &donnees);

/// Gives the name of another correspondent to one, a different one each turn. The program's turn
/// goes from OK in the editor to the painted record.
void EnregistrerVelmira(benchmark::State &etat, const Donnees &donnees);
void EnregistrerNu(benchmark::State &etat, const Donnees &donnees);

/// The writing alone of such a save, as a command that can be taken back or not.
void EcrireFiche(benchmark::State &etat, const Donnees &donnees, bool garde);

void ChercherCodesVelmira(benchmark::State &etat, const QByteArray &codes);
void ChercherCodesNu(benchmark::State &etat, const QByteArray &codes);

/// Ends the process when a half does something else than its other one: their times would say
/// nothing.
void VerifierGrandeListe(const Donnees &donnees, const QStringList &debuts,
                         const QByteArray &codes);
