#pragma once
// Rows of `Adresse` as they are stored, for those who must tell null from empty and from 0.

#include "storage/Base.h"
#include "storage/Lignes.h"

#include <functional>
#include <span>

class Requete;

/// The row that an extract stands on. A column is named by its place in the extract.
class LigneStockee {
 public:
  explicit LigneStockee(const Requete &requete) : requete_(requete) {}

  bool Nul(int place) const;
  /// Whatever the column holds, as a text; null for null.
  QString Texte(int place) const;
  /// False for null.
  bool Vrai(int place) const;

 private:
  const Requete &requete_;
};

/// Some columns of the table, in the order that the caller wants. Every verb throws `ErreurBase`.
class ExtraitAdresse {
 public:
  ExtraitAdresse(Base &base, std::span<const std::size_t> ordinaux);

  /// Walks the rows in the order of the keys until `visiteur` gives false; false then.
  bool PourChaque(const std::function<bool(const LigneStockee &)> &visiteur) const;

  /// Shows one row; false when there is none of this key.
  bool Lire(Cle index, const std::function<void(const LigneStockee &)> &visiteur) const;

 private:
  Base &base_;
  QString parcours_, parCle_;
};
