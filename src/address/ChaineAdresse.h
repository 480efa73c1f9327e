#pragma once
// The address string: how an address travels between the windows. Three blocks separated by "$"
// (head lines, postal code and town, country), items separated by "*", a single blank for an empty
// block. "M. Dupont*3 rue Haute$44000*Nantes$ " is an address without a country.

#include "address/AdresseSaisie.h"

#include <QString>

/// An address string and the order of its postal line: 0 code first, 1 town first.
struct AdresseComposee {
  QString chaine;
  quint8 optionCP = 0;
};

/// The one rule that builds an address string. Empty items are left out; an address with nothing in
/// it is " $ $ ".
AdresseComposee ComposerAdresse(const AdresseSaisie &adresse);

/// Nothing to put on an envelope: no text, or three empty blocks.
bool AdresseVide(const QString &chaine);
