#pragma once
// What the user has chosen for the columns of a table is remembered for the next one with the same
// heads, in `Preferences.ini`.

#include "exchange/LecteurCsv.h"

#include <QString>

/// The choice that was made for such a table; else what its heads tell.
Correspondances ColonnesRetenues(const QString &appPath, const FormeCsv &forme);

/// Throws `ErreurFichier`.
void RetenirColonnes(const QString &appPath, const FormeCsv &forme,
                     const Correspondances &colonnes);
