#pragma once
// How the French postal norm, NF Z 10-011, wants an address to be written. Its rules as La Poste
// and its Service national de l'adresse publish them ("Les 6 règles d'or de la norme",
// laposte.fr/sna; edition of January 2013):
// - six lines at most, and a seventh only for the country of a letter abroad;
// - 38 characters a line at most, blanks included;
// - the last line, of the code and the town, in capitals; better the last three;
// - the lines 4 to 6 (street, place, town) hold letters, digits and blanks only; the lines 1 to 3
//   (name and what belongs to it) may hold any sign;
// - the country in capitals, alone on its line.
// Capitals may keep their accents or not: readers of both exist, so the user chooses.

#include "address/AdresseSaisie.h"
#include "storage/Reglages.h"

#include <QString>

#include <array>

/// An address string whose items are written by the norm. The last three lines, the country not
/// counted and the first line, which is the name, never among them, lose their signs: each becomes
/// a blank, and blanks in a row one; a code in front of a country keeps its own. Capitals as the
/// settings say; the name has them only where all lines do.
QString SelonNorme(const QString &chaine, const ReglagesNorme &norme);

/// A text in capitals, its ligatures written out where it loses its accents.
QString EnMajuscules(const QString &texte, bool accents);

/// What is beyond the norm, told line by line: the five head lines, code and town, country. Empty
/// for a line that is within. None is ever refused.
std::array<QString, 7> RemarquesNorme(const AdresseSaisie &adresse);
