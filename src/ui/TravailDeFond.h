#pragma once

#include "platform/Abandons.h"

#include <QEventLoop>

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

/// A work in a thread of its own, and the event loop in which whoever needs its outcome waits for
/// it. It begins with the object; an object that goes asks it to stop and waits for it.
class TravailDeFond {
 public:
  using Tache = std::function<void(const std::stop_token &)>;

  explicit TravailDeFond(Tache tache);
  ~TravailDeFond();
  TravailDeFond(const TravailDeFond &) = delete;
  TravailDeFond &operator=(const TravailDeFond &) = delete;

  /// Lets events pass until the work has ended, has been given up, or as long as is told; false
  /// when it goes on.
  bool Attendre(QEventLoop::ProcessEventsFlags evenements,
                std::optional<std::chrono::milliseconds> duree = {});

  void DemanderArret() { fil_.request_stop(); }

  /// Asks to stop, and ends the waiting half a second later whether the work obeys or hangs.
  void Abandonner();

  /// Joins its thread, after asking it to stop where the program's end has ended the waiting;
  /// throws what it has thrown.
  void Finir();

  /// The same of a work that has ended. One that hangs is left to its thread, counted there as long
  /// as it goes on, and false given: it has to own all that it uses, or to use what stays.
  bool FinirOuLaisser(const Abandons &abandons);

 private:
  /// What the two threads share.
  struct Partage {
    std::mutex verrou;
    bool fini = false;
    QEventLoop *boucle = nullptr;  ///< of whoever waits; none any more for a work that is left
    std::exception_ptr faute;
    std::shared_ptr<void> compte;  ///< of a work that is left
  };
  static void Mener(const std::stop_token &arret, Tache tache,
                    const std::shared_ptr<Partage> &partage);
  bool EstFini() const;

  QEventLoop boucle_;
  std::shared_ptr<Partage> partage_ = std::make_shared<Partage>();
  std::jthread fil_;
};
