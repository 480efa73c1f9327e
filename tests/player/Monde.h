#pragma once

#include <QString>

/// The folders that a scenario's program lives in: an application folder `app/` and a user's folder
/// `home/`.
class Monde {
 public:
  /// Makes them anew in a folder, with the delivered files in `app/`. Throws `Echec`.
  explicit Monde(const QString &dossier);

  QString App() const { return dossier_ + QStringLiteral("/app"); }
  QString Home() const { return dossier_ + QStringLiteral("/home"); }
  /// Where the program keeps its data after a first start.
  QString Donnees() const;
  /// The database of the program's run: the one that is recorded, where it can be reached.
  QString Base() const;

  /// The full path of a name: `app/...`, `home/...`, a full path, or a name in `app/`.
  QString Chemin(const QString &nom) const;
  /// Puts the two folders in the place of `{app}` and `{home}`, and in that of `{long}` more
  /// letters than the toolkit's fields hold by themselves.
  QString Completer(QString texte) const;

 private:
  QString dossier_;
};
