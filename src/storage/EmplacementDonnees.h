#pragma once
// Where the data lie: the two files of the application folder that record it, and what is found
// there. Nothing here asks or tells the user.

#include "storage/Dossiers.h"

#include <QString>

#include <optional>

/// The user's data folder; nothing when he is to be asked for it. Throws `ErreurFichier` when the
/// record cannot be read.
std::optional<QString> LireCheminData(const QString &appPath);

/// The folder that is recorded for the database; nothing when none is. Throws `ErreurFichier` when
/// the record cannot be read.
std::optional<QString> LireCheminBase(const QString &appPath);

/// Record a folder. They throw `ErreurFichier`, also for a path that the file could not give back;
/// the record is then as it was.
void EcrireCheminData(const QString &appPath, const QString &chemin);
void EcrireCheminBase(const QString &appPath, const QString &chemin);

/// What the recorded folder of the database has turned out to be.
enum class EtatChemin {
  Inconnu,       ///< none is recorded
  Local,         ///< the user's data folder
  Partage,       ///< another data folder, with its database
  NonTransfere,  ///< a data folder to which no database has been transferred yet
  Invalide,      ///< no data folder
  Inaccessible,  ///< nobody can tell now: the folder or its record cannot be read
};

struct EmplacementBase {
  EtatChemin etat;
  QString dossier;  ///< where the database of this run is: the user's data folder but on a share
  QString choisi;   ///< what the user has chosen to work with; his data folder for no valid choice
  QString raison = {};  ///< why it is `Inaccessible`, as words for the user
};

/// Only looks: no file changes.
EmplacementBase TrouverBase(const QString &appPath, const QString &cheminData);

/// The folders of a run of Velmira with this application folder, for its companions. Throws
/// `ErreurFichier`, also where Velmira has never been started.
Dossiers DossiersDeVelmira(const QString &appPath);
/// What the user of a companion reads where Velmira has no database.
QString TexteSansBase();

/// These look at the disk, and throw `ErreurFichier` where it does not let them.
/// Whether a path is one of data: it bears their word, and is not that of their copies.
bool EstCheminDeDonnees(const QString &chemin);
/// Whether such a folder is there.
bool EstDossierDeDonnees(const QString &chemin);
/// Whether it holds no file.
bool EstVide(const QString &dossier);
/// Whether it holds a user's database, and a delivered one.
bool ContientBase(const QString &dossier);
bool ContientBaseLivree(const QString &dossier);

/// Whether a folder is refused as the place of the data: it lies outside every profile folder and
/// names both "PUBLIC" and "DEFAULT".
bool DossierRefuse(const QString &chemin);

/// The data folder of the user whose own folder this is; `dossier` ends in a separator.
QString CheminDataDe(const QString &dossier);

/// Makes a data folder below a folder of a server and gives its path. Throws `ErreurFichier`, also
/// for a path that could not be recorded; no folder has been made then.
QString CreerDossierDeDonnees(const QString &lieu);

/// What older versions and installations leave in the application folder goes to its place: a
/// user's database to his data folder, a delivered one to the folder of the database, where none
/// stands yet. Nothing happens where there is none. They throw `ErreurFichier`.
void DeplacerBaseProche(const Dossiers &dossiers);
void DeplacerBaseLivree(const Dossiers &dossiers);
/// The same over a delivered one that is left there. Not while another program may be filling it.
void RemplacerBaseLivree(const Dossiers &dossiers);
