#pragma once
// An older database in the Jet format, of the program's first years.

#include "storage/SourceAncienne.h"
#include "storage/TableJet.h"

#include <QDateTime>
#include <QHash>
#include <QString>

#include <chrono>

/// Whether a file is a database in that format: by its head, whatever its name. False too when it
/// cannot be read.
bool EstJet(const QString &chemin);

/// What one reading may take.
struct LimitesJet {
  std::chrono::milliseconds delai = std::chrono::seconds(60);  ///< for all tables together
  qsizetype octets = qsizetype{256} << 20;                     ///< for each table, of memory
  QString lecteur = {};  ///< the program that reads; empty for the one that is installed
};

/// Read whole when it is made, by a process of its own (`velmira-jet`), a table at a time, and kept
/// in memory: the file may be damaged in any way, and is only read. Its rows stand in the order of
/// their keys. In any thread, one at a time.
class SourceJet : public SourceAncienne {
 public:
  /// Throws `ErreurBase` when nothing of it can be read, or when it lacks one of the tables that
  /// every database of ours has had. What is damaged in part is made all the same: see `Constat`.
  explicit SourceJet(const QString &chemin, const LimitesJet &limites = {});

  const QString &Chemin() const { return chemin_; }

  /// Whether every row and every field could be read. Whoever takes over one that is not must have
  /// asked the user.
  bool Entiere() const;

  /// What could be read, a line for each table, for that question.
  QString Constat() const;

  /// The table by its name; `Absente` where the file has none.
  const TableJet &LaTable(const QString &nom) const { return tables_.find(nom).value(); }

  /// Whether the file is still the one that was read; false when it is none of this format any
  /// more. Throws `ErreurBase` when it has changed.
  bool EstEnPlace() const;

  bool Ouvrir(const QString &table) override;
  bool Suivante() override;
  /// A field that could not be read is null.
  std::optional<QVariant> Champ(int ordinal) override;

 private:
  struct Empreinte {
    qint64 taille = 0;
    QDateTime modifie;
    friend bool operator==(const Empreinte &, const Empreinte &) = default;
  };

  static Empreinte Prendre(const QString &chemin);
  void Lire(const LimitesJet &limites);
  void Verifier(const QString &raison) const;

  QString chemin_;
  Empreinte empreinte_;
  QHash<QString, TableJet> tables_;
  const TableJet *table_ = nullptr;
  qsizetype rang_ = -1;
  QList<QVariant> ligne_;
};
