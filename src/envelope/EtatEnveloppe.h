#pragma once

#include "address/ChaineAdresse.h"
#include "envelope/FormatsEnveloppe.h"

#include <QString>

/// What an envelope is in memory beside the settings and the addressee: the envelope window's, for
/// the whole run.
struct EtatEnveloppe {
  Millimetres LargeurEnv = kLongueurDL;  ///< longest side
  Millimetres HauteurEnv = kHauteurDL;
  AdresseComposee ExpediteurCourant;  ///< an empty string for none
  QString Commentaire;                ///< printed at the top right, empty for none
  bool CommentaireGras = false;
  bool CommentaireSouligne = false;
  bool ImpressionMultiple = false;  ///< while a run of envelopes is prepared or printed
};
