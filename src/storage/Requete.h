#pragma once
// Statements, which stand in the storage alone.

#include "storage/Base.h"

#include <QString>

#include <memory>

class QSqlQuery;

/// One statement. Values are bound in the order of its question marks. Throws `ErreurBase`, also
/// when the base is closed or its transaction lost. Must not outlive what it works on.
class Requete {
 public:
  Requete(Base &base, const QString &texte);
  ~Requete();
  Requete(const Requete &) = delete;
  Requete &operator=(const Requete &) = delete;

  /// A null QString is bound as null.
  Requete &Lier(const QString &valeur);
  Requete &Lier(qint64 valeur);
  Requete &Lier(int valeur) { return Lier(qint64{valeur}); }
  Requete &Lier(bool valeur) { return Lier(qint64{valeur ? 1 : 0}); }

  /// Runs a statement that gives no rows, and tells how many it changed.
  qint64 Executer();

  /// Steps to the first or the next row; false behind the last one. Forward only.
  bool Suivante();

  QString Texte(int colonne) const;
  qint64 Entier(int colonne) const;
  bool Nul(int colonne) const;

  /// Key of the row that was added.
  qint64 CleAjoutee() const;

 private:
  void Lancer();
  [[noreturn]] void Echouer();

  Base &base_;
  QString texte_;
  std::unique_ptr<QSqlQuery> requete_;
  bool lancee_ = false;
  bool liee_ = false;  ///< values are bound for a run that has not begun
};
