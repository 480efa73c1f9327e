#pragma once
// What the program keeps of its own conveniences, in files of sections of the application folder:
// what the user has chosen in `Preferences.ini`, how the windows were left in `Etat.ini`. The older
// settings files know nothing of them.

#include <QByteArray>
#include <QList>
#include <QString>

#include <utility>

class Preferences {
 public:
  using Valeurs = QList<std::pair<QString, QString>>;  ///< key, value

  /// Reads the file, which never fails: a missing one holds nothing, and one that cannot be read
  /// leaves `NonLues`.
  explicit Preferences(const QString &appPath,
                       const QString &nom = QStringLiteral("Preferences.ini"));

  /// The file is there, and could not be read.
  bool NonLues() const { return nonLues_; }

  /// A value; empty where the file does not have it.
  QString Texte(const QString &section, const QString &cle) const;
  /// A whole number; `sinon` where there is none.
  int Nombre(const QString &section, const QString &cle, int sinon) const;

  /// Puts values of one section into the file as it stands now, and replaces it whole; all else
  /// that it holds stays. A missing file is made. Values are of one line, in the characters of the
  /// code page. Throws `ErreurFichier`, also where the file is `NonLues`; it is untouched then.
  void Ecrire(const QString &section, const Valeurs &valeurs);

 private:
  QString chemin_;
  QByteArray octets_;
  bool nonLues_ = false;
};
