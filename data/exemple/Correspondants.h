#pragma once
// The invented people, firms and associations of the example.

#include "Hasard.h"
#include "storage/Lignes.h"

#include <QString>

#include <vector>

struct Invente {
  Correspondant ligne;
  QString initiales;   ///< of a person whose portrait is to be drawn, otherwise empty
  bool femme = false;  ///< how that portrait looks
};

/// 150 rows in the order of their categories; `Photo` is left empty. Names, telephone numbers (of
/// the ranges kept for fiction) and network addresses belong to nobody.
std::vector<Invente> InventerCorrespondants(Hasard &hasard);

/// Lower-case letters and digits without accents, whatever else becomes a hyphen: the form of a
/// name in a network address or a file name.
QString SansAccents(const QString &nom);
