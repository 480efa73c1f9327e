#include "ui/Travail.h"

#include "ui/FrmAvancement.h"
#include "ui/Sablier.h"
#include "ui/TravailDeFond.h"

#include <optional>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto kAttente = 500ms;  // work that is shorter shows nothing

/// Called in the thread of the work. Only what moves the bar is sent to the window.
Avance VersFenetre(FrmAvancement &fenetre, const std::stop_token &arret) {
  return [&fenetre, arret, dernier = 0](qsizetype fait, qsizetype total) mutable {
    const int pas = total > 0 ? static_cast<int>(fait * FrmAvancement::kPas / total) : 0;
    if (pas != std::exchange(dernier, pas))
      QMetaObject::invokeMethod(
          &fenetre, [&fenetre, pas] { fenetre.Montrer(pas); }, Qt::QueuedConnection);
    return !arret.stop_requested();
  };
}

}  // namespace

void Travail::Lancer(const std::function<void(const Avance &)> &tache) const {
  FrmAvancement avancement(titre_, fenetre_);
  TravailDeFond fond([&](const std::stop_token &arret) { tache(VersFenetre(avancement, arret)); });
  QObject::connect(&avancement, &FrmAvancement::ArretDemande, &avancement,
                   [&fond] { fond.DemanderArret(); });

  std::optional<Sablier> sablier(std::in_place);
  if (!fond.Attendre(QEventLoop::ExcludeUserInputEvents, kAttente)) {
    sablier.reset();  // it would lie over the button that stops
    avancement.show();
    fond.Attendre(QEventLoop::AllEvents);
  }
  fond.Finir();
}
