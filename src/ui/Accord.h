#pragma once

#include "platform/Boites.h"
#include "storage/Conflits.h"

#include <optional>

/// Writes what a user has changed of a row, and asks where another has changed the same meanwhile.
/// `ecrire(montree, saisie)` writes the columns in which the two differ; where one of them is in
/// conflict it writes nothing and gives the stored row back. `cedees` are columns that the user has
/// left alone and the saving itself gives another form: there what another has written stays,
/// unasked. False when the user goes back to the entry; nothing is written then. What `ecrire`
/// throws passes through.
template <typename L, typename Ecrire>
bool EcrireEnAccord(Boites &boites, L montree, L saisie, const Libelles<L> &libelles,
                    Ecrire &&ecrire, const ChoixColonnes<L> &cedees = {}) {
  // Again after an answer: the row may have changed once more while the question stood.
  while (const std::optional<L> stockee = ecrire(montree, saisie)) {
    const auto conflits = Comparer(montree, saisie, *stockee).conflits;
    const auto disputes = conflits & ~cedees;
    auto siennes = conflits & cedees;
    if (disputes.any()) {
      const auto choix = boites.QuestionAnnulable(
          Boites::Titre(), TexteConflit(ChampsEnConflit(disputes, saisie, *stockee, libelles)));
      if (choix == Boites::Choix::Annuler) return false;
      if (choix == Boites::Choix::Non) siennes = conflits;
    }
    Recopier(saisie, *stockee, siennes);
    Recopier(montree, *stockee, conflits);
  }
  return true;
}
