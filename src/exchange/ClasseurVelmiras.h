#pragma once

#include "platform/Classeur.h"
#include "storage/Avance.h"
#include "storage/Lignes.h"

#include <QList>
#include <QString>

#include <memory>
#include <optional>

class Base;
class QTemporaryDir;

/// The sheet "VELMIRA": a row of titles, then one row a correspondent. Columns are as wide as their
/// longest line, rows as high as the lines of the address.
FeuilleClasseur FeuilleVelmiras(const QList<Correspondant> &velmiras);

/// Where the workbook made last lies: a folder of its own, which goes with this. Each one gets
/// another: a spreadsheet that shows the one before would show it again.
class ClasseurVelmiras {
 public:
  explicit ClasseurVelmiras(Classeur &classeur);
  ~ClasseurVelmiras();
  ClasseurVelmiras(const ClasseurVelmiras &) = delete;
  ClasseurVelmiras &operator=(const ClasseurVelmiras &) = delete;

  /// Writes the correspondents of these keys, without those that another user has deleted
  /// meanwhile, and gives the path of the workbook; nothing when it was stopped. Throws
  /// `ErreurBase` and `ErreurFichier`. The workbook before stays then.
  std::optional<QString> Ecrire(Base &base, const QList<Cle> &cles, const Avance &avance);

 private:
  Classeur &classeur_;
  std::unique_ptr<QTemporaryDir> dossier_;
};
