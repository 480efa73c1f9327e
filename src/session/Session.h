#pragma once

#include "platform/Plateforme.h"
#include "storage/Base.h"
#include "storage/Dossiers.h"
#include "storage/Reglages.h"

/// What one run of the program shares. There is one, made where the program is put together and
/// handed by reference to whoever needs it.
struct Session {
  Plateforme &plateforme;
  Dossiers dossiers;
  Base base;
  Reglages reglages;
};
