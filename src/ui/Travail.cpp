#include "ui/Travail.h"

#include "ui/FrmAvancement.h"
#include "ui/Sablier.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <exception>
#include <optional>
#include <thread>
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
  QEventLoop boucle;
  bool fini = false;  // known to this thread alone
  std::exception_ptr faute;
  std::jthread fil([&](const std::stop_token &arret) {
    try {
      tache(VersFenetre(avancement, arret));
    } catch (...) {
      faute = std::current_exception();
    }
    QMetaObject::invokeMethod(
        &boucle,
        [&] {
          fini = true;
          boucle.quit();
        },
        Qt::QueuedConnection);
  });
  QObject::connect(&avancement, &FrmAvancement::ArretDemande, &boucle, [&] { fil.request_stop(); });

  std::optional<Sablier> sablier(std::in_place);
  QTimer::singleShot(kAttente, &boucle, &QEventLoop::quit);
  boucle.exec(QEventLoop::ExcludeUserInputEvents);
  if (!fini) {
    sablier.reset();  // it would lie over the button that stops
    avancement.show();
    boucle.exec();
  }
  fil.request_stop();  // a loop ends early when the program does
  fil.join();
  if (faute) std::rethrow_exception(faute);
}
