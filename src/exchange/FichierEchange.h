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

  /// The whole content, or nothing when it cannot be read.
  std::optional<QByteArray> Contenu() const;
  /// The same; throws `ErreurFichier` when it cannot be read.
  QByteArray Lire() const;

  /// Throws `ErreurFichier`; the old file is then untouched.
  void Remplacer(const QByteArray &octets) const;

 private:
  QString chemin_;
};
