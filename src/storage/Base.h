#pragma once
// The database file of a run, statements with bound values, transactions.

#include "platform/Erreurs.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <unordered_map>

/// A failure of the engine, in its words, or a file that is not ours.
class ErreurBase : public Erreur {
 public:
  using Erreur::Erreur;
};

/// The SQLite file `Velmira.mdb`. It is marked by its application id and its schema version;
/// several processes may hold it open. Opening never creates or changes a file. A `Base` belongs to
/// the thread that has opened it.
class Base {
 public:
  static constexpr qint32 kApplication = 0x56656C6D;  ///< "Velm", the file's application id
  static constexpr qint32 kVersion = 1;               ///< the schema that this program writes

  Base() = default;
  ~Base() { Fermer(); }
  Base(const Base &) = delete;
  Base &operator=(const Base &) = delete;

  /// Opens an existing file. A file that is missing leaves the base closed, without an error.
  /// Throws `ErreurBase` when it is something else than a database of ours; it stays closed then.
  void Ouvrir(const QString &chemin);
  void Fermer();
  bool Ouverte() const { return connexion_.isOpen(); }
  /// Full path of the open file; empty while none is open.
  const QString &Chemin() const { return chemin_; }

 private:
  friend class Requete;
  void Verifier();

  QSqlDatabase connexion_;
  QString chemin_;
  std::unordered_map<QString, QSqlQuery> prepares_;  ///< statements that wait for their next use
};

/// One statement. Values are bound in the order of its question marks. Throws `ErreurBase`, also
/// when the base is closed. Must not outlive what it works on.
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

  QString Texte(int colonne) const { return requete_.value(colonne).toString(); }
  qint64 Entier(int colonne) const { return requete_.value(colonne).toLongLong(); }
  bool Nul(int colonne) const { return requete_.isNull(colonne); }

  /// Key of the row that was added.
  qint64 CleAjoutee() const { return requete_.lastInsertId().toLongLong(); }

 private:
  void Lancer();

  Base &base_;
  QString texte_;
  QSqlQuery requete_;
  bool lancee_ = false;
  bool liee_ = false;  ///< values are bound for a run that has not begun
};

/// What stands between its making and `Valider` is written whole or not at all. The write lock is
/// taken at once, so that two users wait for each other at the beginning and never in the middle.
class Transaction {
 public:
  explicit Transaction(Base &base);
  ~Transaction();
  Transaction(const Transaction &) = delete;
  Transaction &operator=(const Transaction &) = delete;

  void Valider();

 private:
  Base &base_;
  bool ouverte_ = true;
};
