#pragma once
// Address cards taken into the directory, beside the import of our own file and beside another
// program's address book. The turns tell their time themselves.

#include "Echanges.h"

#include <QStringList>

#include <benchmark/benchmark.h>

/// From the file to the rows: the cards of an `Envoi` into a fresh table.
void ReprendreCartes(benchmark::State &etat, const Envoi &envoi, Annuaire annuaire);

/// The same cards into an address book of Evolution's data server that holds those of
/// `Annuaire::Autres`, in a session and in folders of its own. Skipped where it is not installed.
void ReprendreParEvolution(benchmark::State &etat, const Envoi &envoi);

/// Cards as they lie in files: how many of these there are, of how many correspondents.
struct LotDeCartes {
  qsizetype correspondants;
  QStringList fichiers;
};
/// The cards of `envoi` in one file, the same in ten, and ten files of as many that all differ.
/// They are written into the folder of `atelier`. Throws `ErreurFichier`.
QList<LotDeCartes> LotsDeCartes(const Envoi &envoi, const Atelier &atelier);

/// Takes files of cards into a table. Throws `Erreur`.
void Reprendre(const QString &base, const QStringList &fichiers);
