#pragma once
// How the reader of Jet databases, a program of its own, hands over a table on its standard output.
// Both sides include this and nothing else of each other.
//
// The stream is a row of frames: kind (1 byte), length of the body (4), body. Numbers are
// big-endian. A table is `Absente` alone, or `Entete`, a `Ligne` for each row in the order of the
// keys, and `Fin`. What ends without `Absente` or `Fin` was not read to its end.

#include <cstddef>
#include <cstdint>

namespace jet {

enum class Trame : std::uint8_t {
  Absente = 'A',  ///< the file has no such table; no body
  Entete = 'T',   ///< columns (2), rows that the table claims to have (4)
  Ligne = 'L',    ///< one field for each column
  Fin = 'F',      ///< whether anything but a field could not be read, 0 or 1 (1)
};

/// The kind (1 byte) of a field, and what follows it.
enum class Champ : std::uint8_t {
  Nul = 0,       ///< nothing
  Texte = 1,     ///< length (4), UTF-8; an empty one is no null
  Nombre = 2,    ///< two's complement (8)
  Illisible = 3  ///< nothing
};

constexpr std::size_t kTete = 5;            // kind and length of a frame
constexpr std::size_t kColonnesMax = 255;   // of the format
constexpr std::size_t kTexteMax = 1 << 26;  // bytes of a note; a longer one counts as damaged

}  // namespace jet
