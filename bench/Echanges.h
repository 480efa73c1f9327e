#pragma once
// The exchange with another copy of the program and with a spreadsheet. Each function is one half
// of a row; the turns tell their time themselves.

#include "Donnees.h"

#include <QStringList>

#include <benchmark/benchmark.h>
#include <vector>

/// An exchange file, each of whose correspondents has a name of its own, and the tables that it can
/// be imported into. Lies in the current folder. Throws `Erreur`.
class Envoi {
 public:
  /// The correspondents of `donnees`.
  explicit Envoi(const Donnees &donnees);

  qsizetype Nombre() const { return nombre_; }
  QString Fichier() const { return dossier_.filePath(QStringLiteral("Velmira.txt")); }
  /// The same correspondents as address cards.
  QString Cartes() const { return dossier_.filePath(QStringLiteral("cartes.vcf")); }
  /// The lines of the file, 24 a record; the name without its star.
  std::vector<QStringList> Fiches() const;

  /// An empty table, or one that knows all the names: in every tenth row three of the fields are
  /// empty that the file fills.
  QString Base(bool connus) const {
    return dossier_.filePath(connus ? QStringLiteral("connus.mdb") : QStringLiteral("vide.mdb"));
  }

 private:
  qsizetype nombre_;
  QTemporaryDir dossier_;
};

/// Each turn has a fresh table. `garde`: as a command that can be taken back.
void ImporterVelmira(benchmark::State &etat, const Envoi &envoi, bool connus, bool garde = false);
void ImporterNu(benchmark::State &etat, const Envoi &envoi, bool connus);

/// The cards of the same correspondents, each made a record.
void LireCartes(benchmark::State &etat, const Envoi &envoi);

/// From the table to the file on the disk.
void ExporterVelmira(benchmark::State &etat, const Donnees &donnees);
void ExporterNu(benchmark::State &etat, const Donnees &donnees);

/// From the table, each record read by its key, to the workbook.
void ClasseurVelmira(benchmark::State &etat, const Donnees &donnees);
void ClasseurNu(benchmark::State &etat, const Donnees &donnees);

/// Ends the process when a half writes other rows or other bytes than its other one.
void VerifierEchanges(const Envoi &envoi, const Donnees &donnees);
