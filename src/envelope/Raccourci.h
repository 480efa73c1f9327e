#pragma once

#include <QString>

/// Text of the key code that prints: its first character is the key's place in the list of keys,
/// the rest its name ("0F5" to "7F12", "8ENTR"); empty for any other code.
QString LibelleRaccourci(int raccourci);

/// The key code at a place of the list of keys.
qint16 CodeRaccourci(int place);
