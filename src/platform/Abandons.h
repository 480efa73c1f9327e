#pragma once
// Works that were given up while the system kept them waiting. Each goes on in a thread that nobody
// waits for; what it uses has to be there until it ends.

#include <atomic>
#include <memory>

/// Counts them. Copies count together.
class Abandons {
 public:
  /// One more, until the last holder lets go of what this gives.
  std::shared_ptr<void> Compter() const {
    ++*nombre_;
    return {nullptr, [nombre = nombre_](void *) { --*nombre; }};
  }

  int EnCours() const { return *nombre_; }

 private:
  std::shared_ptr<std::atomic<int>> nombre_ = std::make_shared<std::atomic<int>>(0);
};
