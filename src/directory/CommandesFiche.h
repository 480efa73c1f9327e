#pragma once

#include "directory/ListeVelmiras.h"

/// What is done with the correspondent that is selected in the list.
class CommandesFiche {
 public:
  CommandesFiche(Session &session, ListeVelmiras &liste) : session_(session), liste_(liste) {}

  /// Asks, deletes the record and takes it off the list. `avant` runs before the record goes.
  void Supprimer(const std::function<void()> &avant);

  /// Puts the selected correspondent among the favourites.
  void AjouterAuxFavoris();

  /// The selected correspondent; invalid, with the message that says so, when there is none.
  QModelIndex Selection() const;

 private:
  void QuitterCategorieVide();

  Session &session_;
  ListeVelmiras &liste_;
};
