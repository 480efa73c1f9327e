#include "ui/TravailDeFond.h"

#include <QTimer>

#include <utility>

using namespace std::chrono_literals;

namespace {

constexpr auto kDelaiArret = 500ms;  // for a work to obey who gives it up

}  // namespace

TravailDeFond::TravailDeFond(Tache tache) {
  partage_->boucle = &boucle_;
  fil_ = std::jthread(&TravailDeFond::Mener, std::move(tache), partage_);
}

TravailDeFond::~TravailDeFond() {
  {
    const std::scoped_lock tenu(partage_->verrou);
    partage_->boucle = nullptr;
  }
  if (!fil_.joinable()) return;
  fil_.request_stop();
  fil_.join();
}

void TravailDeFond::Mener(const std::stop_token &arret, Tache tache,
                          const std::shared_ptr<Partage> &partage) {
  std::exception_ptr faute;
  try {
    std::exchange(tache, {})(arret);
  } catch (...) {
    faute = std::current_exception();
  }
  std::shared_ptr<void> compte;  // goes last: nobody waits for this thread but by it
  const std::scoped_lock tenu(partage->verrou);
  partage->fini = true;
  partage->faute = std::move(faute);
  compte = std::exchange(partage->compte, nullptr);
  if (partage->boucle != nullptr)
    QMetaObject::invokeMethod(partage->boucle, &QEventLoop::quit, Qt::QueuedConnection);
}

bool TravailDeFond::EstFini() const {
  const std::scoped_lock tenu(partage_->verrou);
  return partage_->fini;
}

bool TravailDeFond::Attendre(QEventLoop::ProcessEventsFlags evenements,
                             std::optional<std::chrono::milliseconds> duree) {
  if (duree) QTimer::singleShot(*duree, &boucle_, &QEventLoop::quit);
  if (!EstFini()) boucle_.exec(evenements);
  return EstFini();
}

void TravailDeFond::Abandonner() {
  DemanderArret();
  QTimer::singleShot(kDelaiArret, &boucle_, &QEventLoop::quit);
}

void TravailDeFond::Finir() {
  fil_.request_stop();  // a loop ends early when the program does
  fil_.join();
  if (partage_->faute) std::rethrow_exception(partage_->faute);
}

bool TravailDeFond::FinirOuLaisser(const Abandons &abandons) {
  fil_.request_stop();
  {
    const std::scoped_lock tenu(partage_->verrou);
    if (!partage_->fini) {
      partage_->compte = abandons.Compter();
      partage_->boucle = nullptr;
      fil_.detach();
      return false;
    }
  }
  Finir();
  return true;
}
