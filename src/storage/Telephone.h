#pragma once

#include <QString>

/// Stored form of a telephone number: digits in pairs joined by `separateur`, a lone digit in
/// front. A sign that stands directly behind a removed one stays. Never fails; an empty text stays
/// empty.
QString FormatTelephone(QString texte, const QString &separateur);
