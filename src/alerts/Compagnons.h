#pragma once
// The companion programs: where they stand, and their place in the list of what the system starts
// at log-on.

#include "platform/ListeDemarrage.h"

#include <QString>

enum class Compagnon {
  Alertes,  ///< shows what is due
  Memora,   ///< the sticky notes
};

/// The program of a companion, which stands in the application folder.
QString CheminCompagnon(const QString &appPath, Compagnon compagnon);

void InscrireDemarrage(ListeDemarrage &liste, const QString &appPath, Compagnon compagnon);
void RetirerDemarrage(ListeDemarrage &liste, Compagnon compagnon);
