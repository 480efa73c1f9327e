#pragma once

#include "exchange/PersonneImportee.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

#include <optional>
#include <utility>

/// The pictures of one taking over. They get their names at its very end: what a kill leaves before
/// bears names that a start sweeps, and a kill after it leaves no record without its picture. They
/// go again unless they are kept. Every verb throws `ErreurFichier`.
class PhotosReprises {
 public:
  explicit PhotosReprises(const QString &dossier) : dossier_(dossier) {}
  ~PhotosReprises();
  PhotosReprises(const PhotosReprises &) = delete;
  PhotosReprises &operator=(const PhotosReprises &) = delete;

  /// The path that a picture will have, after the name of its person; of a file that holds it
  /// already, where such a one bears that name.
  QString Ecrire(const QString &nom, const PhotoImportee &photo);

  /// See `LirePhoto`; also of one that has no name yet.
  std::optional<QByteArray> Lire(const QString &chemin) const;

  void Nommer() const;
  /// The records that name them are stored.
  void Garder() { ecrites_.clear(); }

 private:
  QString dossier_;
  QList<std::pair<QString, QString>> ecrites_;  ///< under which name, and which it will have
  QHash<QString, QString> provisoires_;         ///< by the second
  QHash<QString, int> numeros_;                 ///< the last one of each beginning
};
