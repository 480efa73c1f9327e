#pragma once
// The folders and files that a scenario's program lives in.

#include <QString>
#include <QStringList>

#include <optional>

/// An application folder `app/` and a user's folder `home/`. Every verb throws `Echec`.
class Monde {
 public:
  /// A new world in an existing folder, with the files of `livraison` in `app/`. Paths of
  /// `Depuis...` count from the folder of the scenario.
  Monde(const QString &dossier, const QString &livraison, const QString &dossierScenario);

  QString App() const { return dossier_ + QStringLiteral("/app"); }
  QString Home() const { return dossier_ + QStringLiteral("/home"); }
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

  /// The lines of a file without the final line end; nothing when there is no such file.
  std::optional<QStringList> Lire(const QString &nom) const;

 private:
  QString dossier_, livraison_, dossierScenario_;
};
