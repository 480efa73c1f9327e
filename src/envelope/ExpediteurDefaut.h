#pragma once

#include "storage/Base.h"

#include <QString>

#include <optional>

/// The default sender of `Defaut.ini`.
struct ExpediteurDefaut {
  QString chaine;       ///< address string
  quint8 optionCP = 0;  ///< order of its postal line
};

/// Reads `Defaut.ini`: a line with an address string, a line with a digit. A file of the older form
/// without the digit is completed by "0" and written back. A file that holds no address string is
/// the choice of no sender, or damaged: it is deleted and no sender of the table stays the default
/// one. Nothing when there is no such file. Throws `ErreurFichier` and `ErreurBase`.
std::optional<ExpediteurDefaut> LireExpediteurDefaut(const QString &appPath, Base &base);
