#pragma once
// The address string: how an address travels between the windows. Three blocks separated by "$"
// (head lines, postal code and town, country), items separated by "*", a single blank for an empty
// block. "M. Dupont*3 rue Haute$44000*Nantes$ " is an address without a country.

#include "address/AdresseSaisie.h"

#include <QString>

/// An address as a window hands it to another.
struct AdresseComposee {
  QString chaine;
  OptionCP optionCP = OptionCP::CodeDevant;

  friend bool operator==(const AdresseComposee &, const AdresseComposee &) = default;
};

/// The one rule that builds an address string. Empty items are left out; an address with nothing in
/// it is " $ $ ".
AdresseComposee ComposerAdresse(const AdresseSaisie &adresse);

/// A text without the signs that separate the items of such a string.
QString SansSeparateurs(QString texte);

/// Nothing to put on an envelope: no text, or three empty blocks.
bool AdresseVide(const QString &chaine);
