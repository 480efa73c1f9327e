#pragma once
// Chance that gives the same choices on every machine for the same seed.

#include <cstdint>
#include <iterator>
#include <random>

/// Draws by the generator alone: the distributions of the standard library differ between
/// libraries. For the same reason no expression may draw twice where the language leaves the order
/// of its parts open, as among the arguments of a call.
class Hasard {
 public:
  explicit Hasard(std::uint32_t graine) : moteur_(graine) {}

  /// From `minimum` to `maximum`, both included.
  int Entier(int minimum, int maximum) {
    const auto etendue = static_cast<std::uint32_t>(maximum - minimum) + 1U;
    return minimum + static_cast<int>(static_cast<std::uint32_t>(moteur_()) % etendue);
  }

  /// True once in `sur` times.
  bool UneFois(int sur) { return Entier(1, sur) == 1; }

  template <typename Liste>
  const auto &Parmi(const Liste &liste) {
    const auto place = Entier(0, static_cast<int>(std::size(liste)) - 1);
    return *std::next(std::begin(liste), place);
  }

 private:
  std::mt19937 moteur_;
};
