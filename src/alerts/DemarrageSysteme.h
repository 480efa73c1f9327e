#pragma once
// The companions in the list of what the system starts at log-on.

#include "platform/ListeDemarrage.h"

/// `genre` is 0 for the companion of the alerts, 1 for the one of the sticky notes; any other value
/// does nothing. `appPath` is the folder of the companions.
void InscrireDemarrage(ListeDemarrage &liste, const QString &appPath, quint8 genre);
void RetirerDemarrage(ListeDemarrage &liste, quint8 genre);
