#pragma once
// A portable application folder with data to try the program on.

#include <QDate>
#include <QString>

#include <cstdint>

/// For whom, and when: the events lie around this day.
struct Poste {
  QDate aujourdhui;
  QString utilisateur;
};

/// Fills `dossier`, which is made if need be, with a database of invented correspondents, their
/// portraits and the settings that go with them. The same seed gives the same correspondents.
/// Throws `Erreur` when a file cannot be written, or when a database is there already.
void EcrireDossierExemple(const QString &dossier, std::uint32_t graine, const Poste &poste);
