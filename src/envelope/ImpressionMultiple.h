#pragma once

#include "address/ChaineAdresse.h"
#include "envelope/Tirage.h"
#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"

#include <QList>

/// A run of envelopes, one for each address. On paper they come four seconds apart so that the
/// printer can follow: a small window tells how far it is and stops it; nothing else can be started
/// meanwhile. A run to "PDF" is one file, made at once.
class ImpressionMultiple {
 public:
  ImpressionMultiple(Session &session, ZonesEnveloppe &zones, Tirage &tirage, QWidget *fenetre)
      : session_(session), zones_(zones), tirage_(tirage), fenetre_(fenetre) {}

  /// False when a printing has been refused, which ends the run.
  bool Imprimer(const QList<AdresseComposee> &adresses);

 private:
  bool Enregistrer(const QList<LignesAdresse> &lignes);
  bool ImprimerUneAUne(const QString &appareil, const QList<LignesAdresse> &lignes);
  void DireArret(qsizetype imprimees, qsizetype nombre);

  Session &session_;
  ZonesEnveloppe &zones_;
  Tirage &tirage_;
  QWidget *fenetre_;
};
