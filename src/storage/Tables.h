#pragma once
// Reading and writing the rows of the tables: few verbs, each the query that the program asks.

#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QStringList>

#include <functional>
#include <optional>

/// What the list needs of a correspondent.
struct EntreeListe {
  Cle Index = 0;
  QString NomVelmira, Categories, DataProt;
};

/// A distinct value of `Categories` and the key of the first row that holds it.
struct CategoriesDistinctes {
  QString Categories;
  Cle Premier = 0;
};

/// Adds a row; its key is given by the engine and returned. Throws `ErreurBase`.
template <typename L>
Cle AjouterLigne(Base &base, const L &ligne);

/// Table `Adresse`. Every verb throws `ErreurBase`; one that writes is one transaction.
class TableAdresse {
 public:
  explicit TableAdresse(Base &base) : base_(base) {}

  std::optional<Correspondant> Lire(Cle index) const;

  /// Walks the whole table in its stored order, the order of the keys.
  void PourChaque(const std::function<void(EntreeListe &&)> &visiteur) const;

  bool EstVide() const;

  /// In the order in which a walk of the table first meets them; empty ones left out.
  QList<CategoriesDistinctes> Categories() const;

  /// False when another user has deleted it meanwhile.
  bool Supprimer(Cle index);

  /// The records that `utilisateur` has protected are hidden from the other users, or shown to
  /// them. No other mark is touched.
  void MasquerProteges(const QString &utilisateur, bool masquer);

  /// A record that another user has deleted meanwhile throws.
  void EcrireCommentaires(Cle index, const QString &texte);
  void EcrireCategories(Cle index, const QString &categories);
  void EffacerPhoto(Cle index);

 private:
  void EcrireChamp(Cle index, const QString &champ, const QString &valeur);

  Base &base_;
};

/// Table `Expediteur`. Every verb throws `ErreurBase`.
class TableExpediteur {
 public:
  explicit TableExpediteur(Base &base) : base_(base) {}

  /// No sender is the default one any more.
  void OublierDefaut();

 private:
  Base &base_;
};
