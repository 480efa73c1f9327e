#pragma once

#include <QApplication>

/// The mouse pointer is the hourglass while this lives: the window says that it is at work.
class Sablier {
 public:
  Sablier() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~Sablier() { QApplication::restoreOverrideCursor(); }
  Sablier(const Sablier &) = delete;
  Sablier &operator=(const Sablier &) = delete;
};

/// Gives what a function gives, under the hourglass while it runs. What it throws passes through.
template <typename F>
auto SousSablier(F &&faire) {
  const Sablier sablier;
  return faire();
}
