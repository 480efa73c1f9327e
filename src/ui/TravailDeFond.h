#pragma once

#include <QEventLoop>

#include <chrono>
#include <exception>
#include <functional>
#include <optional>
#include <thread>

/// A work in a thread of its own, and the event loop in which whoever needs its outcome waits for
/// it. It begins with the object; an object that goes asks it to stop and waits for it.
class TravailDeFond {
 public:
  explicit TravailDeFond(std::function<void(const std::stop_token &)> tache);

  /// Lets events pass until the work has ended, or as long as is told; false when it goes on.
  bool Attendre(QEventLoop::ProcessEventsFlags evenements,
                std::optional<std::chrono::milliseconds> duree = {});

  void DemanderArret() { fil_.request_stop(); }

  /// Joins its thread, after asking it to stop where the program's end has ended the waiting;
  /// throws what it has thrown.
  void Finir();

 private:
  QEventLoop boucle_;
  bool fini_ = false;  ///< known to the waiting thread alone
  std::exception_ptr faute_;
  std::jthread fil_;  ///< last: it uses the others
};
