#pragma once

#include "storage/Base.h"
#include "ui/TravailDeFond.h"

#include <QObject>
#include <QScopeGuard>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

/// A value that is read beside the windows, one at a time; where it goes, it waits for its thread.
template <typename T>
class LectureACote {
 public:
  bool EnCours() const { return fond_ != nullptr; }

  /// `lire` runs in a thread of its own, and touches neither a window nor what belongs to one.
  /// `finie` then runs in the thread of `contexte`, unless that has been destroyed, and calls
  /// `Prendre`.
  void Lancer(QObject *contexte, std::function<T(const std::stop_token &)> lire,
              std::function<void()> finie) {
    fond_ =
        std::make_unique<TravailDeFond>([this, contexte, lire = std::move(lire),
                                         finie = std::move(finie)](const std::stop_token &arret) {
          const auto dire = qScopeGuard(
              [&] { QMetaObject::invokeMethod(contexte, finie, Qt::QueuedConnection); });
          lue_ = lire(arret);
        });
  }

  /// The same with a connection of its own to the file of `base`.
  void Lancer(QObject *contexte, const Base &base,
              std::function<T(Base &, const std::stop_token &)> lire, std::function<void()> finie) {
    Lancer(
        contexte,
        [chemin = base.Chemin(), lire = std::move(lire)](const std::stop_token &arret) {
          Base connexion;
          connexion.Ouvrir(chemin);
          return lire(connexion, arret);
        },
        std::move(finie));
  }

  /// Throws what the reading has thrown.
  T Prendre() {
    const auto fond = std::exchange(fond_, nullptr);
    fond->Finir();
    return *std::exchange(lue_, std::nullopt);
  }

 private:
  std::optional<T> lue_;                 ///< the thread's until it has ended
  std::unique_ptr<TravailDeFond> fond_;  ///< last: it uses the other
};
