#pragma once
// The engine below the storage: connections, and its failures. For the storage's own .cpp files,
// which include the toolkit's headers of what is only named here.

#include "storage/Base.h"

#include <QString>

#include <chrono>
#include <memory>

class QSqlDatabase;
class QSqlError;
class QSqlQuery;
struct sqlite3;

/// The file as the engine takes it: to be read and written, never to be made. Writing is asked for
/// even by who only reads: what a killed program left half written is taken back at the opening.
QString AdresseMoteur(const QString &chemin);
/// The same to be read alone: no lock but a reader's is ever taken. Cannot be opened while a killed
/// program's writing waits to be taken back.
QString AdresseEnLecture(const QString &chemin);

/// The failure of a statement on the file at work: its kind, a sentence for the user and the
/// engine's own words.
ErreurBase ErreurMoteur(const QSqlError &erreur, const QString &chemin);

/// The same failure as the one of what `echec` tells (see `PhraseEchec`), the file unharmed.
ErreurBase AutrementDit(const QString &echec, const ErreurBase &erreur);

/// The same failure as the one of an opening, which has a sentence of its own for each kind.
ErreurBase ErreurOuverture(const QString &chemin, const ErreurBase &erreur);

/// One connection to a file. Statements go before it does. Every verb throws `ErreurBase`.
class Connexion {
 public:
  enum class Fichier { Present, Nouveau };

  /// `attente`: how long a lock of another connection is waited for.
  Connexion(const QString &chemin, Fichier fichier, std::chrono::milliseconds attente);
  ~Connexion();
  Connexion(const Connexion &) = delete;
  Connexion &operator=(const Connexion &) = delete;

  /// A statement that walks its rows forward only.
  std::unique_ptr<QSqlQuery> Preparer(const QString &texte) const;
  void Executer(const QString &texte) const;

  /// Whether the file has this table, as rows of its own: a view of this name may have no end.
  bool ATable(const QString &nom) const;

  /// Whether another file bears its name now.
  bool EstRemplacee() const;

  /// The engine's own handle of it, for what the toolkit does not offer.
  sqlite3 *Poignee() const;

 private:
  void Fermer();

  QString chemin_;
  std::unique_ptr<QSqlDatabase> connexion_;
};
