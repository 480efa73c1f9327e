#pragma once

#include "directory/FrmNewMod.h"
#include "directory/ListeVelmiras.h"
#include "directory/Repertoire.h"
#include "ui/CompteRendu.h"

/// What is done with the correspondents of the list: with the selected one by the directory's own
/// commands, and with any of them for the other windows.
class CommandesFiche : public Repertoire {
 public:
  /// What the window gives to the commands.
  struct Fenetre {
    QWidget *parent;
    std::function<bool()> protegesMasques;  ///< protected records are hidden from the others now
    std::function<void()> partie;           ///< the record on display has been deleted
    CompteRendu &fait;                      ///< says what a command has done
    std::function<void()> annuler;          ///< takes the last command back
  };

  CommandesFiche(Session &session, ListeVelmiras &liste, Fenetre fenetre)
      : session_(session), liste_(liste), fenetre_(std::move(fenetre)) {}

  /// The editor for a new record, which then stands selected in the whole list.
  void Nouveau();

  /// The editor for the selected record.
  void ModifierSelection();

  /// Asks, deletes the selected record and takes it off the list.
  void SupprimerSelection();

  /// Puts the selected correspondent among the favourites.
  void AjouterAuxFavoris();

  /// The selected correspondent; invalid, with the message that says so, when there is none.
  QModelIndex NoeudChoisi() const;

  Cle Selection() const override;
  void Selectionner(Cle index) override;
  void AfficherTous() override;
  std::optional<Correspondant> Ajouter(QWidget *parent, const Ajout &ajout) override;
  bool Modifier(QWidget *parent, Cle index) override;
  void Supprimer(Cle index) override;

 private:
  /// Runs the editor for a new correspondent and writes it. Nothing for a cancel.
  std::optional<Correspondant> SaisirNouveau(QWidget *parent, const Ajout &ajout);
  /// Runs the editor and writes what it gives. A writing that fails is told, and the editor comes
  /// again with what was typed; so it does where `ecrire` gives false. False for a cancel.
  /// Town and record are one command, `genre` names it.
  bool Saisir(FrmNewMod &editeur, const QString &genre,
              const std::function<bool(const FicheSaisie &)> &ecrire);
  FrmNewMod::Contexte Contexte() const;
  /// Runs the editor for a correspondent, writes it and puts its node in its place. Gives the row
  /// as it is then; nothing for a cancel, and where it has gone.
  std::optional<Correspondant> Corriger(QWidget *parent, Cle index);
  /// Deletes a correspondent and takes it off the list; the categories are as they were.
  void Oter(Cle index);
  void DireCategorieVide();
  /// Says that the category on display is empty, and shows all.
  void QuitterCategorieVide();

  Session &session_;
  ListeVelmiras &liste_;
  Fenetre fenetre_;
};
