#pragma once

#include <QString>

/// The folders of a run, without trailing separators.
struct Dossiers {
  QString AppPath;           ///< settings and delivered files
  QString CheminData;        ///< the user's data folder
  QString CheminBase;        ///< folder of the database of this run
  QString CheminBaseConfig;  ///< folder that is recorded for it; may be out of reach for now

  QString Base() const { return CheminBase + QStringLiteral("/Velmira.mdb"); }
};
