#include "ui/TravailDeFond.h"

#include <QTimer>

#include <utility>

TravailDeFond::TravailDeFond(std::function<void(const std::stop_token &)> tache)
    : fil_([this, tache = std::move(tache)](const std::stop_token &arret) {
        try {
          tache(arret);
        } catch (...) {
          faute_ = std::current_exception();
        }
        QMetaObject::invokeMethod(
            &boucle_,
            [this] {
              fini_ = true;
              boucle_.quit();
            },
            Qt::QueuedConnection);
      }) {}

bool TravailDeFond::Attendre(QEventLoop::ProcessEventsFlags evenements,
                             std::optional<std::chrono::milliseconds> duree) {
  if (duree) QTimer::singleShot(*duree, &boucle_, &QEventLoop::quit);
  if (!fini_) boucle_.exec(evenements);
  return fini_;
}

void TravailDeFond::Finir() {
  fil_.request_stop();  // a loop ends early when the program does
  fil_.join();
  if (faute_) std::rethrow_exception(faute_);
}
