#pragma once
// The upgrade: the rows of the user's database go into a delivered empty one, which then takes its
// place. Each step leaves the files so that a start after a kill finds a whole database.

#include "storage/Base.h"
#include "storage/Dossiers.h"
#include "storage/Reglages.h"
#include "storage/SourceAncienne.h"
#include "storage/SourceJet.h"

#include <functional>

struct ReglesCopie {
  QString SeparateurTel;
  quint8 JoursAvance = 0;  ///< notice of the events of a database that had none of their own
};

/// The rules of a copy into a base of this application folder.
ReglesCopie LireReglesCopie(const QString &appPath, const QString &separateurTel);

/// Copies the six tables in one transaction; what `cible` held goes. The keys are given anew in the
/// order of the rows. `avancement` gets the number of rows copied, from time to time. Throws
/// `ErreurBase`; `cible` is then as it was.
void CopierBase(SourceAncienne &source, Base &cible, const ReglesCopie &regles,
                const std::function<void(qsizetype)> &avancement);

/// Makes a new database, in the place of whatever bears that name, with the rows of an older one as
/// `CopierBase` copies them. Throws `ErreurBase` or `ErreurFichier`; nothing has changed then.
void ConvertirBase(SourceAncienne &source, const QString &chemin, const ReglesCopie &regles,
                   const std::function<void(qsizetype)> &avancement);

/// Puts the delivered database, full, in the place of the user's own, which becomes
/// `Ancien_Velmira.mdb`; an `Alarme.ini` of the older form is rewritten. Both are closed, or only
/// held. Throws `ErreurFichier`; the two are then under their names.
void EchangerBases(const Dossiers &dossiers);

/// Throws `ErreurBase` when the user's database is none that can be upgraded.
void VerifierMiseAJour(const Dossiers &dossiers);

/// The whole of it, for the database of a run: copies it into the delivered one and swaps the two.
/// The one that still waits in the application folder replaces one left over before. Nobody writes
/// into the user's meanwhile; where another program's upgrade has ended before, nothing is left to
/// do. Throws `ErreurBase` or `ErreurFichier`; the two are then as they were.
void MettreAJourBase(const Dossiers &dossiers, const QString &separateurTel,
                     const std::function<void(qsizetype)> &avancement);

/// The same for a database in the Jet format, read before. Where no database was delivered, one is
/// made as an installation delivers it, and goes again when this fails. One upgrade after the other
/// in a folder. Throws `ErreurBase` also when the file has changed since it was read.
void MettreAJourBaseJet(const Dossiers &dossiers, SourceJet &source, const QString &separateurTel,
                        const std::function<void(qsizetype)> &avancement);

/// Whether the user's database has a newer schema than the delivered one, and would lose what that
/// lacks. Throws `ErreurFichier`. Not while this program has either open.
bool BaseLivreeDepassee(const Dossiers &dossiers);

/// Makes the delivered database the user's own, where he has none. Throws `ErreurFichier`.
void PoserBaseLivree(const QString &cheminBase);

/// Whether a kill has come between the two renames of `EchangerBases`, or another program stands
/// between them now.
bool EchangeInterrompu(const QString &cheminBase);
/// The same once such a program is over: whether there is a swap to be finished, which is done by
/// `PoserBaseLivree`.
bool AttendreEchange(const QString &cheminBase);

/// Rewrites an `Alarme.ini` of the older form. Throws `ErreurFichier`.
void ConvertirAlarme(const QString &appPath);
