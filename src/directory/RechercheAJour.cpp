#include "directory/RechercheAJour.h"

#include "platform/Erreurs.h"

RechercheTotale *RechercheAJour::Courante() {
  const Base::Etat etat = base_.LEtat();
  if (!suite_.EnCours() && (lue_ == nullptr || etat != etat_)) {
    if (TableAdresse(base_).EstGrande())
      LireACote();
    else
      lue_ = std::make_unique<RechercheTotale>(base_, session_.plateforme.utilisateur);
    etat_ = etat;
  }
  return lue_.get();
}

void RechercheAJour::LireACote() {
  suite_.Lancer(
      this, base_,
      [utilisateur = session_.plateforme.utilisateur](Base &base, const std::stop_token &arret) {
        return std::make_unique<RechercheTotale>(base, utilisateur, arret);
      },
      [this] { Recevoir(); });
}

void RechercheAJour::Recevoir() {
  if (Signaler(session_.plateforme.boites, [this] { lue_ = suite_.Prendre(); }))
    emit Prete();
  else
    etat_ = {};
}
