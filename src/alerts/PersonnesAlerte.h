#pragma once

#include "platform/Boites.h"
#include "storage/TablesAlertes.h"

#include <optional>

/// What is done with the people of the alerts. Each command tells whether it has changed something.
class PersonnesAlerte {
 public:
  PersonnesAlerte(Boites &boites, Base &base) : boites_(boites), base_(base) {}

  /// Offers to take over the correspondents, as long as there is no person at all.
  bool ProposerImport();

  /// Asks for a person who exists only here.
  bool Ajouter();
  /// Asks for another name and birth date. What another user has changed meanwhile counts too.
  bool Modifier(Cle personne);

 private:
  /// A birth date as it is stored, empty for none. Asks again until the answer is one or the other;
  /// nothing when it is cancelled.
  std::optional<QString> DemanderDDN(const QString &invite, const QString &defaut);

  Boites &boites_;
  Base &base_;
};
