#pragma once

#include "address/ChaineAdresse.h"
#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"

#include <QList>

#include <functional>
#include <utility>

/// A run of envelopes, one for each address, four seconds apart so that the printer can follow. A
/// small window tells how far it is and stops it; nothing else can be started meanwhile.
class ImpressionMultiple {
 public:
  /// `imprimer` prints what the zones hold; false when printing is refused, which ends the run.
  ImpressionMultiple(Session &session, ZonesEnveloppe &zones, std::function<bool()> imprimer,
                     QWidget *fenetre)
      : session_(session), zones_(zones), imprimer_(std::move(imprimer)), fenetre_(fenetre) {}

  /// False when printing has been refused.
  bool Imprimer(const QList<AdresseComposee> &adresses);

 private:
  Session &session_;
  ZonesEnveloppe &zones_;
  std::function<bool()> imprimer_;
  QWidget *fenetre_;
};
