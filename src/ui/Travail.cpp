#include "ui/Travail.h"

#include "ui/FrmAvancement.h"
#include "ui/Sablier.h"
#include "ui/TravailDeFond.h"

#include <QTimer>

#include <atomic>
#include <memory>
#include <optional>
#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto kAttente = 500ms;  // work that is shorter shows nothing
constexpr auto kRythme = 40ms;    // of the bar

/// How far a work is, told in its thread and shown in that of the windows.
using Avancee = std::shared_ptr<std::atomic<int>>;

Avance VersFenetre(const Avancee &avancee, const std::stop_token &arret) {
  return [avancee, arret](qsizetype fait, qsizetype total) {
    *avancee = total > 0 ? static_cast<int>(fait * FrmAvancement::kPas / total) : 0;
    return !arret.stop_requested();
  };
}

/// Holds input back for a while, then lets `fenetre` stand before the windows.
void AttendreDevant(FrmAvancement &fenetre, const Avancee &avancee, TravailDeFond &fond) {
  std::optional<Sablier> sablier(std::in_place);
  if (fond.Attendre(QEventLoop::ExcludeUserInputEvents, kAttente)) return;
  sablier.reset();  // it would lie over the button that stops
  QTimer rythme;
  QObject::connect(&rythme, &QTimer::timeout, &fenetre, [&] { fenetre.Montrer(*avancee); });
  rythme.start(kRythme);
  fenetre.show();
  fond.Attendre(QEventLoop::AllEvents);
}

}  // namespace

void Travail::Lancer(const std::function<void(const Avance &)> &tache) const {
  const auto avancee = std::make_shared<std::atomic<int>>(0);
  TravailDeFond fond([&](const std::stop_token &arret) { tache(VersFenetre(avancee, arret)); });
  FrmAvancement fenetre(titre_, fenetre_);
  QObject::connect(&fenetre, &FrmAvancement::ArretDemande, &fenetre,
                   [&fond] { fond.DemanderArret(); });
  AttendreDevant(fenetre, avancee, fond);
  fond.Finir();
}

bool Travail::LancerOuLaisser(const Abandons &abandons, const Tache &tache) const {
  const auto avancee = std::make_shared<std::atomic<int>>(0);
  TravailDeFond fond([avancee, tache](const std::stop_token &arret) {
    tache(VersFenetre(avancee, arret), arret);
  });
  if (attente_) {
    attente_(fond);
  } else {
    FrmAvancement fenetre(titre_, fenetre_);
    QObject::connect(&fenetre, &FrmAvancement::ArretDemande, &fenetre,
                     [&fond] { fond.Abandonner(); });
    AttendreDevant(fenetre, avancee, fond);
  }
  return fond.FinirOuLaisser(abandons);
}
