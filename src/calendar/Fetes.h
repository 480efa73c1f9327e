#pragma once
// Who is honoured on a day, and on which day a first name is.

#include "calendar/Saints.h"

#include <QStringList>

#include <optional>

/// "Janvier" for 1 to "Décembre" for 12; empty for any other number.
QString NomDuMois(int mois);

/// Names without the prefix that each of them bears in the file; separators stay.
QString SansPrefixes(QString noms);

/// The names of a line, one by one, without prefixes.
QStringList Prenoms(const LigneSaints &ligne);

struct FetePrenom {
  LigneSaints ligne;
  QString prenom;  ///< as the file writes it, without prefix
};

/// The first day in file order on which exactly this first name is honoured; accents and case do
/// not count. The search ends at a line that is too short to hold names.
std::optional<FetePrenom> ChercherFete(const QList<LigneSaints> &saints, const QString &prenom);
