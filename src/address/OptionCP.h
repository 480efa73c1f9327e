#pragma once

#include <QString>

/// The order of the postal line of an address. Kept as its number, in the rows and in `Defaut.ini`.
enum class OptionCP : quint8 {
  CodeDevant = 0,   ///< postal code, town
  VilleDevant = 1,  ///< town, postal code
};

/// As a correspondent's row keeps it: anything but 0 is the second.
constexpr OptionCP OptionDe(int option) {
  return option == 0 ? OptionCP::CodeDevant : OptionCP::VilleDevant;
}

/// As a sender's row keeps it: anything but "1" is the first.
inline OptionCP OptionDe(const QString &option) {
  return option == u"1" ? OptionCP::VilleDevant : OptionCP::CodeDevant;
}

constexpr int Nombre(OptionCP option) {
  return static_cast<int>(option);
}
