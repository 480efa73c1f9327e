#pragma once
// The exchange with another copy of the program and with a spreadsheet. Each function is one half
// of a row; the turns tell their time themselves.

#include "Donnees.h"

#include <QStringList>

#include <benchmark/benchmark.h>
#include <chrono>
#include <vector>

/// What an exchange file or cards are taken into.
enum class Annuaire {
  Vide,
  Connus,  ///< knows all the names; in every tenth row three fields are empty that the file fills
  Autres,  ///< as many as in the file, of other names, numbers and addresses
};

/// An exchange file, each of whose correspondents has a name of its own, and the tables that it can
/// be imported into. Lies in the current folder. Throws `Erreur`.
class Envoi {
 public:
  /// The correspondents of `donnees`.
  explicit Envoi(const Donnees &donnees);

  qsizetype Nombre() const { return nombre_; }
  QString Fichier() const { return dossier_.filePath(QStringLiteral("Velmira.txt")); }
  /// The same correspondents as address cards; those of the other table.
  QString Cartes() const { return dossier_.filePath(QStringLiteral("cartes.vcf")); }
  QString AutresCartes() const { return dossier_.filePath(QStringLiteral("autres.vcf")); }
  /// The lines of the file, 24 a record; the name without its star.
  std::vector<QStringList> Fiches() const;

  QString Base(Annuaire annuaire) const {
    return dossier_.filePath(annuaire == Annuaire::Vide     ? QStringLiteral("vide.mdb")
                             : annuaire == Annuaire::Connus ? QStringLiteral("connus.mdb")
                                                            : QStringLiteral("autres.mdb"));
  }

 private:
  void EcrireAutres() const;

  qsizetype nombre_;
  QTemporaryDir dossier_;
};

/// Where a turn writes: a folder of its own in the current one.
class Atelier {
 public:
  QString Chemin(const QString &nom) const { return dossier_.filePath(nom); }
  /// A copy of a table.
  QString CopierBase(const QString &source) const;

 private:
  QTemporaryDir dossier_{QStringLiteral("echange-XXXXXX")};
};

template <typename Travail>
void Chronometrer(benchmark::State &etat, Travail &&travail) {
  using Montre = std::chrono::steady_clock;
  const auto debut = Montre::now();
  travail();
  etat.SetIterationTime(std::chrono::duration<double>(Montre::now() - debut).count());
}

/// Each turn has a fresh table. `garde`: as a command that can be taken back. The bare half knows
/// the empty table and that of the known names.
void ImporterVelmira(benchmark::State &etat, const Envoi &envoi, Annuaire annuaire,
                     bool garde = false);
void ImporterNu(benchmark::State &etat, const Envoi &envoi, Annuaire annuaire);

/// From the table to the file on the disk.
void ExporterVelmira(benchmark::State &etat, const Donnees &donnees);
void ExporterNu(benchmark::State &etat, const Donnees &donnees);

/// From the table, each record read by its key, to the workbook.
void ClasseurVelmira(benchmark::State &etat, const Donnees &donnees);
void ClasseurNu(benchmark::State &etat, const Donnees &donnees);

/// Ends the process when a half writes other rows or other bytes than its other one.
void VerifierEchanges(const Envoi &envoi, const Donnees &donnees);
