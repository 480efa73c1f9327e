#pragma once

#include "storage/Lignes.h"

#include <functional>
#include <optional>

class QWidget;

/// What the windows of the other subsystems may ask of the directory. Every verb that touches the
/// database throws `ErreurBase`.
class Repertoire {
 public:
  virtual ~Repertoire() = default;

  /// Key of the correspondent that is selected in the list, 0 for none.
  virtual Cle Selection() const = 0;

  /// Selects a correspondent and shows it. One that the list lacks changes nothing.
  virtual void Selectionner(Cle index) = 0;

  /// Chooses all categories, which fills the list anew, and reads the categories again.
  virtual void AfficherTous() = 0;

  /// How a correspondent is added from another window.
  struct Ajout {
    Correspondant depart = {};  ///< what the editor shows at first
    bool alerte = false;        ///< the person comes among those of the alerts, ticked or not
    /// Prints what the editor shows; without it the editor offers no printing.
    std::function<void(const Correspondant &)> imprimer = nullptr;
  };

  /// Opens the editor on `parent`, writes the new correspondent and adds it to the list. Gives the
  /// row as it was written, or nothing for a cancel.
  virtual std::optional<Correspondant> Ajouter(QWidget *parent, const Ajout &ajout) = 0;

  /// Opens the editor on a correspondent and writes it. False for a cancel, and for one whom
  /// another user has deleted meanwhile, which is told.
  virtual bool Modifier(QWidget *parent, Cle index) = 0;

  /// Deletes a correspondent, without a question, and takes it off the list.
  virtual void Supprimer(Cle index) = 0;
};
