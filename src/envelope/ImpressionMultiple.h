#pragma once

#include "address/ChaineAdresse.h"
#include "envelope/Tirage.h"
#include "envelope/ZonesEnveloppe.h"
#include "session/Session.h"

#include <QList>
#include <QStringList>

#include <optional>
#include <vector>

/// A run of envelopes, one for each address.
struct SerieEnveloppes {
  QList<AdresseComposee> adresses;
  QStringList sansAdresse;  ///< whose envelope was wanted, and who have no address
  /// They go as one document, and only after a question; the printer takes its own time for each.
  bool dUnTrait = false;
};

/// Prints such runs. On paper their envelopes come four seconds apart so that the printer can
/// follow: a small window tells how far it is and stops it; nothing else can be started meanwhile.
/// A run to "PDF" is one file, made at once. A long run asks before it starts.
class ImpressionMultiple {
 public:
  ImpressionMultiple(Session &session, ZonesEnveloppe &zones, Tirage &tirage, QWidget *fenetre)
      : session_(session), zones_(zones), tirage_(tirage), fenetre_(fenetre) {}

  /// False when a printing has been refused, which ends the run, or the user has thought better.
  bool Imprimer(const SerieEnveloppes &serie);

 private:
  bool Confirmer(const QString &appareil, const SerieEnveloppes &serie);
  /// Each tells how it has ended, nothing for a refusal, and counts what was printed.
  std::optional<FinImpression> ImprimerDUnTrait(const QString &appareil,
                                                const QList<LignesAdresse> &lignes);
  std::optional<FinImpression> ImprimerUneAUne(const QString &appareil,
                                               const QList<LignesAdresse> &lignes);
  std::optional<FinImpression> Envoyer(const QString &appareil, const std::vector<Pli> &plis);
  void DireArret(qsizetype imprimees, qsizetype nombre);

  Session &session_;
  ZonesEnveloppe &zones_;
  Tirage &tirage_;
  QWidget *fenetre_;
  qsizetype imprimees_ = 0;
};
