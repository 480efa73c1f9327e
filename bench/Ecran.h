#pragma once

#include <QAbstractEventDispatcher>

/// Runs what is queued until nothing is. One pass would not do: what a label's new text changes in
/// the layout is painted in the next one.
inline void AttendreLaPeinture() {
  while (QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents)) {
  }
}
