#pragma once

#include "storage/Lignes.h"

#include <QString>
#include <QTemporaryDir>

/// The category that one correspondent in ten is in.
inline QString CategorieRare() {
  return QStringLiteral("Amis");
}

/// A folder of the program with so many invented correspondents, the same ones in every run. It
/// lies in the current folder, so that what is written goes to a disk. Throws `Erreur`.
class Donnees {
 public:
  explicit Donnees(Cle nombre);

  Cle Nombre() const { return nombre_; }
  QString AppPath() const { return dossier_.path(); }
  QString CheminBase() const {
    return dossier_.filePath(QStringLiteral("DataVelmira/Velmira.mdb"));
  }

 private:
  void EcrireBase() const;

  Cle nombre_;
  QTemporaryDir dossier_;
};
