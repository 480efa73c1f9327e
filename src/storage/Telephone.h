#pragma once

#include <QString>

/// Stored form of a telephone number: digits in pairs joined by `separateur`, a lone digit in
/// front. A sign that stands directly behind a removed one stays. Never fails; an empty text stays
/// empty.
QString FormatTelephone(QString texte, const QString &separateur);

/// Takes the separator out of a stored number, as a whole: sign by sign, `FormatTelephone` would
/// leave some of one that has several. One with digits stays, as it cannot be told from the number.
QString SansLiaison(QString numero, const QString &separateur);
