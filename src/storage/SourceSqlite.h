#pragma once
// An older database of ours: a SQLite file, with whatever columns it has.

#include "storage/SourceAncienne.h"

#include <QStringList>

#include <memory>

class Connexion;

/// Only read, never changed; but what a killed program left half written is taken back first, as
/// every opening does. Neither mark nor version is asked for: the first ones had none.
class SourceSqlite : public SourceAncienne {
 public:
  /// Throws `ErreurBase` when it cannot be opened or lacks one of the tables that every database of
  /// ours has had.
  explicit SourceSqlite(const QString &chemin);
  ~SourceSqlite() override;
  SourceSqlite(const SourceSqlite &) = delete;
  SourceSqlite &operator=(const SourceSqlite &) = delete;

  /// Keeps every other program from writing as long as this lives. Waits for one that does.
  void Reserver();
  /// Whether the file still bears the name that it was opened by; asked while it is kept.
  bool EstEnPlace() const;

  bool Ouvrir(const QString &table) override;
  bool Suivante() override;
  std::optional<QVariant> Champ(int ordinal) override;

 private:
  struct Lecture;

  bool SuivanteUneAUne();
  QStringList Colonnes(const QString &table) const;

  QString chemin_;
  std::unique_ptr<Connexion> connexion_;
  std::unique_ptr<Lecture> lecture_;
};
