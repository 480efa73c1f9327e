#pragma once
// From an address string to line text: lines joined by "*", "**" for a blank line between.

#include "address/ChaineAdresse.h"
#include "storage/Reglages.h"

#include <QString>

struct OptionsLignes {
  bool sautLigne = false;   ///< a blank line after every line
  bool sautPLigne = false;  ///< a blank line after the first line
  bool sautDLigne = false;  ///< a blank line before the last line
  OptionCP optionCP = OptionCP::CodeDevant;
  QString liaison;  ///< between postal code and town
};

/// Line text, and what whoever prints it has to know of it.
struct LignesAdresse {
  QString texte;
  bool paysPresent = false;  ///< it ends with a country: the town stands two lines above the last
};

/// Who an address is of. A sender never gets optional blank lines.
enum class Role { Destinataire, Expediteur };

/// An empty string gives an empty text; blocks that a damaged string lacks count as empty ones.
LignesAdresse MettreEnLignes(const QString &chaine, Role role, const OptionsLignes &options);

/// The same as the user's settings want it, the postal norm among them: the one place where an
/// address becomes what is shown and printed.
LignesAdresse MettreEnLignes(const AdresseComposee &adresse, Role role, const Reglages &reglages);
