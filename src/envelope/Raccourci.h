#pragma once

#include <QString>

#include <optional>

/// A key that can print an envelope.
struct ToucheRaccourci {
  int place = 0;  ///< in the list of keys: F5 to F12, then Enter
  QString nom;    ///< "F5" to "F12", "ENTR"
};

/// The key of a virtual key code; nothing for a code that is none of them.
std::optional<ToucheRaccourci> LibelleRaccourci(int raccourci);

/// The virtual key code of a place of the list of keys.
qint16 CodeRaccourci(int place);
