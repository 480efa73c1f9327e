#pragma once

#include <QObject>

/// For the destructor of a window: its children outlive its own members, and what they still signal
/// while they go must no longer reach it.
inline void DebrancherEnfants(QObject &fenetre) {
  for (QObject *enfant : fenetre.findChildren<QObject *>())
    QObject::disconnect(enfant, nullptr, &fenetre, nullptr);
}
