#pragma once
// Several files that a user has chosen or dropped, as they have turned out.

#include "exchange/FichierRepris.h"
#include "storage/Avance.h"

#include <QList>
#include <QStringList>

struct FichiersRegardes {
  QList<FichierRepris> fichiers;
  QStringList refus;  ///< why nothing can be taken of the others, a sentence each
  bool arrete = false;
};

/// Looks at each, see `Regarder`. Never throws an `Erreur`.
FichiersRegardes RegarderFichiers(const QStringList &chemins, const ReglesCopie &regles,
                                  const Avance &avance);
