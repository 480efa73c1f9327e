#pragma once

#include "directory/ListeVelmiras.h"

class FrmNewMod;

/// What is done with the correspondent that is selected in the list.
class CommandesFiche {
 public:
  CommandesFiche(Session &session, ListeVelmiras &liste) : session_(session), liste_(liste) {}

  /// What the window gives to New and Change.
  struct Fenetre {
    QWidget *parent;
    bool protegesMasques;           ///< protected records are hidden from the others now
    std::function<void()> montrer;  ///< shows the selected record again
  };

  /// The editor for a new record, which then stands selected in the whole list.
  void Nouveau(const Fenetre &fenetre);

  /// The editor for the selected record.
  void Modifier(const Fenetre &fenetre);

  /// Asks, deletes the record and takes it off the list. `partie` runs when the record has gone.
  void Supprimer(const std::function<void()> &partie);

  /// Puts the selected correspondent among the favourites.
  void AjouterAuxFavoris();

  /// The selected correspondent; invalid, with the message that says so, when there is none.
  QModelIndex Selection() const;

 private:
  /// Runs the editor and writes what it gives. A writing that fails is told, and the editor comes
  /// again with what was typed. False for a cancel.
  bool Saisir(FrmNewMod &editeur, Correspondant &fiche, const std::function<void()> &ecrire);
  void QuitterCategorieVide();

  Session &session_;
  ListeVelmiras &liste_;
};
