#pragma once
// What the desktop opens and starts for us.

#include <QString>
#include <QStringList>

class Coquille {
 public:
  virtual ~Coquille() = default;

  /// Opens a document (by its path) or an address ("mailto:...", a web page) with the desktop's
  /// default program. Throws `ErreurFichier`, which tells its place, when it is not there or
  /// nothing can open it, as far as the desktop says so within a few seconds.
  void Ouvrir(const QString &document);

  /// Starts a program by its path without the platform's suffix; one that is not there, under its
  /// name beside this program. False when it could not be started.
  virtual bool Lancer(const QString &programme, const QStringList &arguments) = 0;
  bool Lancer(const QString &programme) { return Lancer(programme, {}); }

  /// Whether there is a program that `Lancer` would start.
  virtual bool PeutLancer(const QString &programme) const = 0;

  /// Starts this program once more, with the arguments that it was given itself. A failure is
  /// silent.
  virtual void RelancerProgramme() = 0;

  /// Shows the desktop's control of the sound. A failure is silent.
  virtual void ReglerSon() = 0;

  /// Whether the user's desktop has a link of this name.
  virtual bool LienExiste(const QString &nom) const = 0;

  /// Makes a link on the user's desktop that starts a program (path without suffix). Throws
  /// `ErreurFichier`, also for a name that cannot be one of a file.
  virtual void CreerLien(const QString &nom, const QString &programme) = 0;

 protected:
  /// False when the document is not there or nothing can open it.
  virtual bool OuvrirSurLeBureau(const QString &document) = 0;
};
