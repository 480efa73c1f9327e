#include "exchange/ColonnesRetenues.h"

#include "storage/Preferences.h"

using namespace Qt::StringLiterals;

namespace {

const QString kSection = u"Colonnes"_s;

}  // namespace

Correspondances ColonnesRetenues(const QString &appPath, const FormeCsv &forme) {
  const QString retenues = Preferences(appPath).Texte(kSection, CleEntetes(forme.entetes));
  const auto colonnes = LireCorrespondances(retenues, forme.entetes.size());
  return colonnes ? *colonnes : Proposer(forme);
}

void RetenirColonnes(const QString &appPath, const FormeCsv &forme,
                     const Correspondances &colonnes) {
  Preferences(appPath).Ecrire(kSection,
                              {{CleEntetes(forme.entetes), EcrireCorrespondances(colonnes)}});
}
