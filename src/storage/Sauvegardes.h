#pragma once
// The dated copies of a database, in a folder `Sauvegardes`: made while others use it, verified,
// thinned out as they grow old.

#include <QDateTime>
#include <QList>
#include <QString>

#include <stop_token>

/// What a copy was made for.
enum class MotifSauvegarde { Jour, MiseAJour, Transfert, Import, Restauration };

/// "du jour", "avant une importation".
QString TexteMotif(MotifSauvegarde motif);

struct Sauvegarde {
  QString chemin;
  QDateTime quand;  ///< without a time for the one of a day
  MotifSauvegarde motif = MotifSauvegarde::Jour;
  qint64 octets = 0;
};

/// Where the copies of a base lie: beside it, and also below another folder that the user has
/// chosen.
struct LieuxSauvegardes {
  QString base;      ///< the database file
  QString ailleurs;  ///< the chosen folder; empty for none

  /// Beside the base.
  QString Voisin() const;
  /// In the chosen folder, in one of its own for each base; empty where none is chosen.
  QString Ailleurs() const;
  /// Whether the chosen folder is not the one that was chosen: its stick is not in its place.
  bool EstAbsent() const;
};

/// What the user has chosen in the application folder; empty for none. Never fails.
QString LireDossierChoisi(const QString &appPath);
/// Chooses a folder, and makes that of the copies in it; empty for none. Throws `ErreurFichier`,
/// the choice is then as it was.
void EcrireDossierChoisi(const QString &appPath, const QString &dossier);

/// The folder that is made in one that is chosen; where it is missing the disk is not the one that
/// was chosen.
QString DossierSauvegardes(const QString &dossier);

/// The copies in a folder, the newest first; none where there is no such folder. Other files are
/// left out.
QList<Sauvegarde> ListerSauvegardes(const QString &dossier);
/// The same of all places.
QList<Sauvegarde> ListerSauvegardes(const LieuxSauvegardes &lieux);

/// Which ones go: kept are all of the last seven days that have any, the last one of each of the
/// last four weeks and of the last twelve months that have any.
QList<Sauvegarde> Superflues(const QList<Sauvegarde> &sauvegardes);

/// Takes away what is superfluous, the oldest ones where the disk has less left than 1 GiB, or a
/// tenth of a small disk, but never the last one, and what runs that died a day ago have left.
/// Never fails.
void EntretenirSauvegardes(const QString &dossier, const QDateTime &maintenant);

struct SauvegardeFaite {
  QString chemin;  ///< of the copy; empty where the day has one already, and where it was stopped
  QString panne;   ///< why it could not be made in the chosen folder, and lies beside the base
};

/// Copies the base as it is at one moment, whole, while others work on it, checks the copy (its
/// structure, and its rows where nobody has written meanwhile), gives it its name and thins the
/// others out. Of a day one copy is made, whoever asks for it. A kill leaves it complete or absent.
/// Throws `ErreurBase` or `ErreurFichier`; what was kept is then as it was.
SauvegardeFaite Sauvegarder(const LieuxSauvegardes &lieux, const QDateTime &maintenant,
                            MotifSauvegarde motif, const std::stop_token &arret = {});
