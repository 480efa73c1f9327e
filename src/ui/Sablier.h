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
