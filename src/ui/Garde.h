#pragma once

#include "platform/Erreurs.h"

/// Wraps a handler of a signal: a failure is shown in the default error box before it could unwind
/// through the toolkit, whose own clean-up would be left out. The handler takes all that the signal
/// gives.
template <typename Action>
auto Garde(Boites &boites, Action action) {
  return
      [&boites, action](const auto &...valeurs) { Signaler(boites, [&] { action(valeurs...); }); };
}
