#pragma once

#include "platform/Boites.h"
#include "storage/TablesAlertes.h"
#include "ui/ComboASuppression.h"

#include <optional>

/// The kinds of event. One that is typed is stored when the list is opened; the Delete key deletes
/// the one that is shown, with all its events.
class ComboEvenements : public ComboASuppression {
  Q_OBJECT

 public:
  using ComboASuppression::ComboASuppression;

  void Relier(Boites &boites, Base &base);
  /// Reads the types in force.
  void Charger();

  void Choisir(const TypeAlerte &type);
  void Vider();

  /// Stores the type that is typed, unless its text is a part of the list already.
  void AjouterSaisie();
  /// Key of the type that is shown; nothing for a text that stands nowhere in the list.
  std::optional<Cle> Type() const;

  void showPopup() override;

 signals:
  /// A type has gone with its events.
  void TypeSupprime();

 private:
  std::optional<int> Position() const;
  void Supprimer();

  Boites *boites_ = nullptr;
  Base *base_ = nullptr;
};
