#pragma once

#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"

#include <QLabel>

class CommandesCommentaire;

/// Prints the envelope that the zones hold.
class Tirage {
 public:
  /// `document` tells where a printing to a file has gone.
  Tirage(Session &session, ZonesEnveloppe &zones, CommandesCommentaire &commentaire,
         QLabel *document)
      : session_(session), zones_(zones), commentaire_(commentaire), document_(document) {}

  /// Prints, to the end of the document. False, with a message, while the printer has not been told
  /// how it takes an envelope.
  bool Imprimer();

 private:
  void MontrerDocument(const QString &chemin);

  Session &session_;
  ZonesEnveloppe &zones_;
  CommandesCommentaire &commentaire_;
  QLabel *document_;
};
