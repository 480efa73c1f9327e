#include "directory/RechercheAJour.h"

#include "platform/Erreurs.h"

#include <QScopeGuard>

namespace {

// Read within a frame.
constexpr qsizetype kPeu = 1000;

}  // namespace

RechercheTotale *RechercheAJour::Courante() {
  const Etat etat{base_.Changements(), base_.Ecritures()};
  if (fond_ == nullptr && (lue_ == nullptr || etat != etat_)) {
    if (TableAdresse(base_).Nombre() > kPeu)
      LireACote();
    else
      lue_ = std::make_unique<RechercheTotale>(base_, session_.plateforme.utilisateur);
    etat_ = etat;
  }
  return lue_.get();
}

void RechercheAJour::LireACote() {
  fond_ = std::make_unique<TravailDeFond>(
      [this, chemin = base_.Chemin(),
       utilisateur = session_.plateforme.utilisateur](const std::stop_token &arret) {
        const auto dire = qScopeGuard([this] {
          QMetaObject::invokeMethod(this, &RechercheAJour::Recevoir, Qt::QueuedConnection);
        });
        Base base;
        base.Ouvrir(chemin);
        suite_ = std::make_unique<RechercheTotale>(base, utilisateur, arret);
      });
}

void RechercheAJour::Recevoir() {
  const auto fond = std::exchange(fond_, nullptr);
  if (!Signaler(session_.plateforme.boites, [&] { fond->Finir(); })) {
    etat_ = {};
    return;
  }
  lue_ = std::move(suite_);
  emit Prete();
}
