#pragma once
// The database file of a run, its failures, transactions.

#include "platform/Erreurs.h"

#include <QHashFunctions>
#include <QList>
#include <QString>

#include <chrono>
#include <memory>
#include <optional>
#include <unordered_map>

class Connexion;
class Historique;
class QSqlQuery;
class SuiviImages;
struct Etape;
struct Laissee;

enum class GenreErreur {
  Occupee,       ///< another connection has held its lock longer than is waited for
  Pleine,        ///< no place left on the disk
  LectureSeule,  ///< the file or its folder cannot be written
  Inaccessible,  ///< the file or its folder cannot be reached: no right, no such place
  Materiel,      ///< the disk or the network has failed
  Endommagee,    ///< the file is damaged, or lacks a part of a database of ours
  Etrangere,     ///< the file is no database of ours
  PlusRecente,   ///< the file is one of a newer version
  Contrainte,    ///< the row does not suit its table; nothing else has failed
  Autre,         ///< anything else: a row that has gone, a lack of memory
};

/// A failure of the engine, a file that is not ours, or a row that another user has deleted.
class ErreurBase : public Erreur {
 public:
  /// `detail`: the engine's own words, which stand behind the sentence.
  explicit ErreurBase(const QString &texte, GenreErreur genre = GenreErreur::Autre,
                      const QString &detail = {})
      : Erreur(texte), genre_(genre), detail_(detail) {}

  GenreErreur Genre() const { return genre_; }

  /// The engine's own words, for another sentence; empty where it has said nothing.
  const QString &Detail() const { return detail_; }

 private:
  GenreErreur genre_;
  QString detail_;
};

/// The SQLite file `Velmira.mdb`. It is marked by its application id and its schema version;
/// several processes may hold it open. Opening never creates or changes a file. A `Base` belongs to
/// the thread that has opened it.
class Base {
 public:
  static constexpr qint32 kApplication = 0x56656C6D;  ///< "Velm", the file's application id
  static constexpr qint32 kVersion = 1;               ///< the schema that this program writes

  Base();
  ~Base();
  Base(const Base &) = delete;
  Base &operator=(const Base &) = delete;

  /// Opens an existing file. A file that is missing leaves the base closed, without an error.
  /// Throws `ErreurBase` when it is something else than a database of ours, or cannot be read now:
  /// `Genre` tells which, and each has a sentence of its own. It stays closed then.
  void Ouvrir(const QString &chemin);
  void Fermer();
  bool Ouverte() const { return connexion_ != nullptr; }
  /// Full path of the open file; empty while none is open.
  const QString &Chemin() const { return chemin_; }

  /// A number that is another one once another connection has changed the file, or another file has
  /// taken its place, which is gone on with; 0 while none is open. Throws `ErreurBase`.
  qint64 Changements();

  /// What another value of tells that the file is not what it was.
  struct Etat {
    qint64 changements = 0;  ///< by others, see `Changements`
    qint64 ecritures = 0;    ///< rows that this connection has written

    friend bool operator==(const Etat &, const Etat &) = default;
  };
  /// Throws `ErreurBase`.
  Etat LEtat();

  /// The commands of this run that can be taken back, until the base is closed.
  Historique &LHistorique() { return *historique_; }
  /// What this base writes from now on belongs to the command that is under way on another base of
  /// the same file, if there is one; it lasts as long as that does.
  void Joindre(const Base &autre) { etape_ = autre.etape_; }

 private:
  friend class Acte;
  friend class SuiviImages;
  friend QList<Laissee> Renverser(const Base &base, const QByteArray &images);
  friend class Requete;
  friend class Transaction;
  friend class Attente;

  void Verifier();
  /// After a repair, say: another file bears the name now. Not while a statement is at work. Throws
  /// `ErreurBase` where it cannot be opened, and keeps the open one.
  void SuivreFichier();
  std::unique_ptr<QSqlQuery> Preparer(const QString &texte);
  void Garder(const QString &texte, std::unique_ptr<QSqlQuery> requete);
  void NoterEchec(const ErreurBase &erreur);
  void ExigerTransaction() const;
  void Attendre(std::chrono::milliseconds duree);

  std::unique_ptr<Connexion> connexion_;
  QString chemin_;
  /// Statements that wait for their next use; none while one is at work.
  std::unordered_map<QString, std::unique_ptr<QSqlQuery>> prepares_;
  int auTravail_ = 0;                    ///< statements
  qint64 fichiers_ = 0;                  ///< that have taken the place of the first one
  std::chrono::milliseconds attente_{};  ///< for a lock of another connection
  bool transaction_ = false;
  std::optional<ErreurBase> perte_;  ///< what the transaction was lost by
  std::unique_ptr<Historique> historique_;
  Etape *etape_ = nullptr;  ///< of the command that is under way
};

/// While this lives, a lock of another connection is waited for that long: 0 fails at once, by
/// `Occupee`. Without it what reads waits two seconds, what writes and the opening ten: a reader
/// only waits for one who is bringing his change to the disk. Making it throws `ErreurBase`.
class Attente {
 public:
  Attente(Base &base, std::chrono::milliseconds duree);
  ~Attente();
  Attente(const Attente &) = delete;
  Attente &operator=(const Attente &) = delete;

 private:
  Base &base_;
  std::chrono::milliseconds avant_;
};

/// What stands between its making and `Valider` is written whole or not at all. The write lock is
/// taken at once, so that two users wait for each other at the beginning and never in the middle.
/// One at a time on a base. It is on the file that bears the name when it is made, see
/// `Base::Changements`. Making it and `Valider` throw `ErreurBase`.
///
/// A statement that fails in it by anything but `Contrainte` loses it, since the engine may have
/// taken everything back: that failure is thrown again by every further statement and by `Valider`,
/// until the transaction goes. Behind a `Contrainte` it may go on without that statement.
class Transaction {
 public:
  explicit Transaction(Base &base);
  ~Transaction();
  Transaction(const Transaction &) = delete;
  Transaction &operator=(const Transaction &) = delete;

  void Valider();

 private:
  Base &base_;
  Attente attente_;
  std::unique_ptr<SuiviImages> suivi_;  ///< within a command
  bool ouverte_ = true;
};
