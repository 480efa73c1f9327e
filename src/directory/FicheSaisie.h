#pragma once

#include "storage/Lignes.h"

/// What the editor hands over.
struct FicheSaisie {
  Correspondant fiche;       ///< as it was shown, with what the form shows as it was typed
  bool AjoutAlerte = false;  ///< the person is to be added to those of the alerts
  bool acceptee = false;     ///< false after a cancel, and for a name of blanks: nothing is written
};
