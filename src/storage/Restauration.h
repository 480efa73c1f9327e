#pragma once
// What a copy of the base holds that differs from now, and its return into the base at work: row by
// row, so that whoever else works on it sees it as a change like any other.

#include "storage/Avance.h"
#include "storage/Base.h"
#include "storage/Lignes.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <stop_token>

/// What has become of a correspondent since the copy.
enum class EcartFiche { Supprimee, Modifiee, Ajoutee };

struct FicheEcartee {
  Cle index = 0;
  EcartFiche ecart = EcartFiche::Supprimee;
  QString nom;                            ///< in the copy; now, of one that was added
  ChoixColonnes<Correspondant> colonnes;  ///< in which it has changed
  std::size_t empreinte = 0;              ///< of the row as it is now; 0 for none
};

struct Comparaison {
  QList<FicheEcartee> fiches;  ///< the deleted, the changed, the added; each in order of the names
  bool autres = false;         ///< senders, towns or alerts differ too

  qsizetype Nombre(EcartFiche ecart) const;
};

/// Whether the user may see a correspondent, by its mark of protection.
using Visibilite = std::function<bool(const QString &dataProt)>;

/// How many correspondents a copy holds that the user may see. Throws `ErreurBase`, also for a file
/// that is no database of this version, in words for the user.
qsizetype CompterFiches(const QString &copie, const Visibilite &visible);

/// Compares a copy with the base as it is now. A correspondent is left out who may not be seen, as
/// the copy has him or as he is now; that he was hidden or shown meanwhile is no change. Left
/// unfinished once it is asked to stop. Throws as `CompterFiches`.
Comparaison ComparerSauvegarde(Base &base, const QString &copie, const Visibilite &visible,
                               const std::stop_token &arret);

/// Gives deleted correspondents back with their keys, and changed ones the columns of the copy, in
/// one transaction. One who is not as he was compared any more stays as he is: the names of these
/// are given. Throws `ErreurBase`; nothing has changed then.
QStringList RestaurerFiches(Base &base, const QString &copie, const QList<FicheEcartee> &choisies);

/// Makes the six tables what they were in the copy, in one transaction: only rows that differ are
/// written. Keys that were given since are never given again. False when it was stopped; nothing
/// has changed then, nor when this throws `ErreurBase`.
bool RestaurerTout(Base &base, const QString &copie, const Avance &avance);
