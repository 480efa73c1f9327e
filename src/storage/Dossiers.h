#pragma once

#include <QString>

/// The word that the path of every data folder contains.
inline QString NomDossierDonnees() {
  return QStringLiteral("DataVelmira");
}

/// The folder of the copies of a database, in that of the database or in another one. What lies in
/// it is no data to work with.
inline QString NomDossierSauvegardes() {
  return QStringLiteral("Sauvegardes");
}

/// The user's database in a folder.
inline QString FichierBase(const QString &dossier) {
  return dossier + QStringLiteral("/Velmira.mdb");
}

/// The empty database that an installation delivers, in whichever folder it waits.
inline QString FichierBaseLivree(const QString &dossier) {
  return dossier + QStringLiteral("/Velmira_base.mdb");
}

/// A workbook that is handed over, in a folder of its own.
inline QString NomClasseur() {
  return QStringLiteral("Velmira.xlsx");
}

/// The folders of a run, without trailing separators.
struct Dossiers {
  QString AppPath;           ///< settings and delivered files
  QString CheminData;        ///< the user's data folder
  QString CheminBase;        ///< folder of the database of this run
  QString CheminBaseConfig;  ///< folder that is recorded for it; may be out of reach for now
  QString Classeurs{};       ///< workbooks that were handed over

  QString Photos() const { return AppPath + QStringLiteral("/Photos"); }
  QString Base() const { return FichierBase(CheminBase); }
};
