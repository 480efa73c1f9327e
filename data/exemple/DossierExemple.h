#pragma once
// A portable application folder with data to try the program on.

#include <QString>

#include <cstdint>

/// Fills `dossier`, which is made if need be, with a database of invented correspondents, their
/// portraits and the settings that go with them. The same seed gives the same rows. Throws `Erreur`
/// when a file cannot be written, or when a database is there already.
void EcrireDossierExemple(const QString &dossier, std::uint32_t graine);
