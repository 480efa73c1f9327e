#pragma once
// From an address string to line text: lines joined by "*", "**" for a blank line between.

#include "envelope/EtatEnveloppe.h"
#include "storage/Reglages.h"

#include <QString>

struct OptionsLignes {
  bool sautLigne = false;    ///< a blank line after every line
  bool sautPLigne = false;   ///< a blank line after the first line
  bool sautDLigne = false;   ///< a blank line before the last line
  bool villeDevant = false;  ///< town before the postal code
  QString liaison;           ///< between postal code and town
};

struct LignesAdresse {
  QString texte;
  bool paysPresent = false;
};

/// A sender (`destinataire` false) never gets optional blank lines. An empty string gives an empty
/// text; blocks that a damaged string lacks count as empty ones.
LignesAdresse MettreEnLignes(const QString &chaine, bool destinataire,
                             const OptionsLignes &options);

/// The same with the options of the program, and with `etat.PaysPresent` set by what was formatted:
/// the text formatted last settles which line is the town's when it is printed.
QString MettreEnLignes(const QString &chaine, bool destinataire, const ReglagesPlomex &plomex,
                       EtatEnveloppe &etat);
