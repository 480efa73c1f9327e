#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The exchange file of a folder, `Velmira.txt`.
class FichierEchange {
 public:
  explicit FichierEchange(const QString &dossier);

  const QString &Chemin() const { return chemin_; }
  bool EstPresent() const;

  /// The whole content, or nothing when there is no such file. It and the two others throw
  /// `ErreurFichier` when it is there and cannot be read.
  std::optional<QByteArray> Contenu() const;
  /// The same of a file that has to be there.
  QByteArray Lire() const;

  /// Throws `ErreurFichier`; the old file is then untouched.
  void Remplacer(const QByteArray &octets) const;

 private:
  QString chemin_;
};
