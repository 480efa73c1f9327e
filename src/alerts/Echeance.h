#pragma once
// When an event gives an alert.

#include "storage/TablesAlertes.h"

#include <QDate>
#include <QList>

#include <optional>

struct Echeance {
  int DelaiAlerte = 0;  ///< lead time: days before the event on which its alert begins
  QDate DebutAlerte;    ///< first day of the alert, counted from the event's date of this year
  int EcartJours = 0;   ///< from today to the event; negative when it is past

  bool Due() const { return EcartJours >= 0 && EcartJours <= DelaiAlerte; }
};

/// Of a one-off event.
Echeance EcheancePonctuelle(QDate evenement, int delai, QDate aujourdhui);

/// Of an annual event; `evenement` is its date in the current year. Around New Year the event meant
/// is the one of January, of this year or of the next.
Echeance EcheanceAnnuelle(QDate evenement, int delai, QDate aujourdhui);

/// Of a stored event, of which an annual one counts with its day and month only, 29/02 as 28/02 in
/// a year without that day; nothing when its date is none.
std::optional<Echeance> EcheanceDe(const Evenement &evenement, QDate aujourdhui);

/// The last day of a stored event before today, of an annual one as above; none where its date is
/// none, and of a one-off event that is still to come.
QDate DernierJour(const Evenement &evenement, QDate aujourdhui);

struct BilanAlertes {
  bool due = false;                  ///< at least one
  QList<EvenementJoint> sansDate{};  ///< active ones with a text that is no date
};

/// Looks at every event. One that is inactive or bears no text as its date is left out.
BilanAlertes ChercherAlertes(const QList<PersonneEvenements> &personnes, QDate aujourdhui);
