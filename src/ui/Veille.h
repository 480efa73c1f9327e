#pragma once
// The watch for what other users change.

#include "platform/Horloge.h"

/// Takes the look `regard` every three seconds as long as `fenetre` lives.
inline void Veiller(Horloge &horloge, QObject *fenetre, const std::function<void()> &regard) {
  horloge.Apres(std::chrono::seconds(3), fenetre, [&horloge, fenetre, regard] {
    Veiller(horloge, fenetre, regard);
    regard();
  });
}
