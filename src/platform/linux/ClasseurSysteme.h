#pragma once

#include "platform/Classeur.h"

/// Workbooks in the format of the common spreadsheets (.xlsx).
class ClasseurSysteme : public Classeur {
 public:
  void Ecrire(const QString &chemin, const FeuilleClasseur &feuille) override;
};
