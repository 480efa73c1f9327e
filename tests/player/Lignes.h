#pragma once
// Rows of the database as a scenario writes and reads them: by the names of tables and fields.

#include "player/Analyse.h"
#include "storage/Lignes.h"

#include <QString>

/// Works on the database file beside the program, as another user would: opened for one verb and
/// closed again. Tables, fields and rows that do not exist throw `Echec`.
class LignesDuMonde {
 public:
  explicit LignesDuMonde(QString chemin) : chemin_(std::move(chemin)) {}

  /// Adds a row of `Field=value` words; a field that is not named is the empty text, 0 or faux.
  void Ajouter(const QString &table, const QList<Mot> &champs) const;
  void Ecrire(const QString &table, Cle cle, const QList<Mot> &champs) const;
  void Effacer(const QString &table, Cle cle) const;

  qint64 Nombre(const QString &table) const;
  /// The field as text, booleans as `vrai` and `faux`; null is a null text.
  QString Champ(const QString &table, Cle cle, const QString &champ) const;

 private:
  QString chemin_;
};
