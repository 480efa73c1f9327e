#pragma once
// The address string: how an address travels between the windows. Three blocks separated by "$"
// (head lines, postal code and town, country), items separated by "*", a single blank for an empty
// block. "M. Dupont*3 rue Haute$44000*Nantes$ " is an address without a country.

#include <QString>
#include <QStringList>

struct Correspondant;

/// Empty items are left out; an address with nothing in it is " $ $ ".
QString ChaineAdresse(const QStringList &tete, const QString &codePostal, const QString &ville,
                      const QString &pays);

QString ChaineAdresse(const Correspondant &correspondant);

/// Nothing to put on an envelope: no text, or three empty blocks.
bool AdresseVide(const QString &chaine);
