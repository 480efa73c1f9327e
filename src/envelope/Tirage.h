#pragma once

#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"

#include <QLabel>

class CommandesCommentaire;

/// Prints the envelope that the zones hold.
class Tirage {
 public:
  /// `document` tells where the last printing has gone, if it went to a file, or that it failed.
  Tirage(Session &session, ZonesEnveloppe &zones, CommandesCommentaire &commentaire,
         QLabel *document)
      : session_(session), zones_(zones), commentaire_(commentaire), document_(document) {}

  /// Prints on the printer of the settings; where it is gone, on the one printed on last. False
  /// where it failed, and, with a message, while the printer has not been told how it takes an
  /// envelope.
  bool Imprimer();

 private:
  void MontrerFin(const FinImpression &fin, bool fichier);

  Session &session_;
  ZonesEnveloppe &zones_;
  CommandesCommentaire &commentaire_;
  QLabel *document_;
  QString courante_;  ///< the printer that was printed on last; empty before
};
