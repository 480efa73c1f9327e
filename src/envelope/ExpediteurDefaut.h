#pragma once

// `Defaut.ini`, the default sender: a line with an address string, a line with a digit.

#include "address/ChaineAdresse.h"
#include "storage/Base.h"

#include <QString>

#include <optional>

/// Replaces the file. An empty address string is the choice of no sender. Throws `ErreurFichier`.
void EcrireExpediteurDefaut(const QString &appPath, const AdresseComposee &expediteur);

/// Deletes the file, if there is one.
void OublierExpediteurDefaut(const QString &appPath);

/// Reads the file; what its code page lacks is taken from the row of the default sender, where that
/// is the same but for it. One of the older form without the digit is completed by "0" and written
/// back. One that holds no address string is the choice of no sender, or damaged: it is deleted and
/// no sender of the table stays the default one. Nothing when there is no such file. Throws
/// `ErreurFichier` and `ErreurBase`.
std::optional<AdresseComposee> LireExpediteurDefaut(const QString &appPath, Base &base);
