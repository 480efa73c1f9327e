#pragma once

#include "storage/Lignes.h"

/// What the editor hands over.
struct FicheSaisie {
  /// As it was shown; its categories as the user's own sweeps have left them since.
  Correspondant montree;
  Correspondant fiche;       ///< the same, with what the user has changed
  bool AjoutAlerte = false;  ///< the person is to be added to those of the alerts
  bool acceptee = false;     ///< false after a cancel, and for a name of blanks: nothing is written
};
