#include "exchange/FichiersRegardes.h"

#include "platform/Erreurs.h"

FichiersRegardes RegarderFichiers(const QStringList &chemins, const ReglesCopie &regles,
                                  const Avance &avance) {
  FichiersRegardes regardes;
  qsizetype fait = 0;
  for (const QString &chemin : chemins) {
    try {
      regardes.fichiers.append(Regarder(chemin, regles));
    } catch (const Erreur &erreur) {
      regardes.refus.append(erreur.Texte());
    }
    regardes.arrete = !avance(++fait, chemins.size());
    if (regardes.arrete) break;
  }
  return regardes;
}
