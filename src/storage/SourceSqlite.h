#pragma once
// An older database of ours: a SQLite file, with whatever columns it has.

#include "storage/SourceAncienne.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>

#include <limits>

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

  bool Ouvrir(const QString &table) override;
  bool Suivante() override;
  std::optional<QVariant> Champ(int ordinal) override;

 private:
  struct Lecture {
    explicit Lecture(const QSqlDatabase &connexion)
        : toutes(connexion), cles(connexion), seule(connexion) {}
    QString table;
    QStringList colonnes;
    QSqlQuery toutes;       ///< all rows, up to the first damaged one
    QSqlQuery cles, seule;  ///< from there on the keys, and each row on its own
    qint64 cle = std::numeric_limits<qint64>::min();
    QSqlQuery *ligne = nullptr;  ///< where the current row stands; none when it is damaged
    bool uneAUne = false;
  };

  bool SuivanteUneAUne();
  QStringList Colonnes(const QString &table) const;
  void Fermer();

  QSqlDatabase connexion_;
  std::optional<Lecture> lecture_;
};
