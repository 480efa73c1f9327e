#pragma once

#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"

#include <QLabel>

#include <optional>
#include <vector>

class CommandesCommentaire;

/// Prints the envelopes that the zones hold, beside the windows.
class Tirage {
 public:
  /// `document` tells where the last printing has gone, if it went to a file, or that it failed.
  Tirage(Session &session, ZonesEnveloppe &zones, CommandesCommentaire &commentaire,
         QLabel *document)
      : session_(session), zones_(zones), commentaire_(commentaire), document_(document) {}

  /// Prints what the zones hold. False where it failed, and, with a message, while the printer has
  /// not been told how it takes an envelope.
  bool Imprimer();

  /// The printer of the settings; where it is gone, the one printed on last, else the default one.
  /// Nothing, with a message, where nothing can be printed now.
  std::optional<QString> Appareil();

  /// What the zones hold, as an envelope to be printed.
  Pli Contenu() const { return {zones_.Etat(), zones_.Contenu()}; }

  /// Prints them on this printer, as one document. False where it failed. A comment that is meant
  /// for one printing alone goes with it.
  bool Imprimer(const QString &appareil, const std::vector<Pli> &plis);

  /// What was told of the last printing is told no longer.
  void Oublier();

 private:
  void MontrerFin(const FinImpression &fin, const QString &appareil, std::size_t nombre);
  void MontrerEchec(const QString &constat, const QString &raison);

  Session &session_;
  ZonesEnveloppe &zones_;
  CommandesCommentaire &commentaire_;
  QLabel *document_;
  QString courante_;  ///< the printer that was printed on last; empty before
};
