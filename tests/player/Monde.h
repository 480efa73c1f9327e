#pragma once
// The folders, files and rows that a scenario's program lives in.

#include "player/Analyse.h"
#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QStringList>

/// An application folder `app/` and a user's folder `home/`. Every verb throws `Echec`.
class Monde {
 public:
  /// A new world in an existing folder, with the files of `livraison` in `app/`. What is copied
  /// lies in `dossierScenario`.
  Monde(const QString &dossier, QString livraison, QString dossierScenario);

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

  void Installer() const;
  void LivrerBase() const;
  void Ecrire(const QString &nom, const QStringList &lignes) const;
  void CopierDepuisScenario(const QString &source, const QString &cible) const;
  void CreerDossier(const QString &nom) const;
  /// Puts in its place a file that opens and cannot be read, also by the superuser.
  void RendreIllisible(const QString &nom) const;
  /// Puts there a pipe that nobody writes into.
  void PoserTube(const QString &nom) const;
  /// Puts there a name that leads nowhere: not even what it is can be told.
  void FermerLAcces(const QString &nom) const;
  void Effacer(const QString &nom) const;
  /// The database makes no sense from here on, also for who has it open.
  void AbimerBase() const;
  /// The lines of a file without the final line end; a missing one is an `Echec`.
  QStringList Lire(const QString &nom) const;
  QByteArray Octets(const QString &nom) const;

  // Rows, beside the program, as another user would change them. What the engine refuses, a table
  // or field that is none and a row that is not there are failures of the scenario.

  /// Adds a row of `Field=value` words; a field that is not named is the empty text, 0 or faux.
  void Ajouter(const QString &table, const QList<Mot> &champs) const;
  void Modifier(const QString &table, Cle cle, const QList<Mot> &champs) const;
  void Supprimer(const QString &table, Cle cle) const;
  qint64 Nombre(const QString &table) const;
  /// As text, a yes or no as 1 or 0; null is a null text.
  QString Champ(const QString &table, Cle cle, const QString &champ) const;
  /// Of all rows in the order of their keys; null is "nul".
  QStringList Colonne(const QString &table, const QString &champ) const;

 private:
  QString dossier_, livraison_, dossierScenario_;
};

/// Another user who is writing: nobody else can write while this lives.
class AutreEcrivain {
 public:
  /// `seul`: the others may not even read, he is bringing what he has written to the disk.
  AutreEcrivain(const QString &chemin, bool seul);

 private:
  ::Base base_;
};
