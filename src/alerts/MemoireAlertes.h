#pragma once
// What a user has been told of the events of a database, in `Vigilo.ini` of the application folder.
// The database itself knows nothing of it.

#include "storage/Lignes.h"

#include <QByteArray>
#include <QDate>
#include <QHash>
#include <QString>

class MemoireAlertes {
 public:
  /// Nothing has been told yet.
  MemoireAlertes() = default;

  /// What the file keeps for a user and a database; nothing where it has none of them. Throws
  /// `ErreurFichier` when the file is there and cannot be read.
  MemoireAlertes(const QString &appPath, const QString &base, const QString &utilisateur);

  /// The day on which it was last looked at; none at the first time.
  QDate Regarde() const { return regarde_; }

  /// Whether the user has been told of this day of an event.
  bool Dite(Cle evenement, QDate jour) const;
  /// Whether it is not to be shown `aujourdhui`: it has been seen, and the day itself has not come
  /// since.
  bool Vue(Cle evenement, QDate jour, QDate aujourdhui) const;

  void NoterDite(Cle evenement, QDate jour);
  void NoterVue(Cle evenement, QDate jour, QDate aujourdhui);
  /// It has been looked at; what was told of days before is of no use any more. A clock that was
  /// put back changes nothing.
  void NoterRegard(QDate aujourdhui);

  /// Puts it into the file, where what belongs to other users and databases stays. Throws
  /// `ErreurFichier`; the file is then as it was.
  void Ecrire() const;

 private:
  struct Dit {
    QDate jour;
    QDate vueLe;  ///< none where it was told only
  };

  void Lire(const QString &texte);
  QString Dites() const;

  QString chemin_, section_;
  QDate regarde_;
  QHash<Cle, Dit> dites_;
};
