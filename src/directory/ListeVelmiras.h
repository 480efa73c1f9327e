#pragma once

#include "directory/ArbreVelmiras.h"
#include "session/Session.h"

#include <functional>

class QComboBox;
class QLabel;

/// The left side of the directory: the categories in their combo, and the tree of the category that
/// is chosen.
class ListeVelmiras {
 public:
  struct Controles {
    QComboBox *categories;
    ArbreVelmiras *arbre;
    QLabel *compte;
  };

  /// `avant` runs before each filling of the tree; when it throws, the list stays as it is.
  ListeVelmiras(Session &session, const Controles &controles, std::function<void()> avant);

  /// Collects the categories and fills the combo. The category on display stays chosen; -1 when it
  /// has gone. The tree is left as it is.
  void RemplirCategories();

  /// Fills the tree for the category of the combo. Throws `ErreurBase`.
  void Charger();

  /// Chooses a category as the user would.
  void AfficherCategorie(const QString &categorie);
  /// Chooses the names that begin with a letter: the quick search.
  void AfficherInitiale(const QString &lettre);

  /// Puts a node in its place in the tree; the record is another's business.
  void Inserer(const NoeudListe &noeud);
  /// Takes a node off the tree; the record is another's business.
  void Retirer(const QModelIndex &noeud);

  /// The line that counts the records.
  void MettreAJourCompte();

  ArbreVelmiras &Arbre() const { return *controles_.arbre; }
  /// Text of the combo.
  QString Categorie() const;
  /// How many children the last filling gave and how many have been added since.
  qsizetype NombreNoeuds() const { return NombreNoeuds_; }

 private:
  Session &session_;
  Controles controles_;
  std::function<void()> avant_;
  QString CategorieCourante;  ///< of the last filling
  QString LettreRR;           ///< initial of the quick search
  qsizetype NombreNoeuds_ = 0;
};
