#include "address/Villes.h"

#include "storage/Noms.h"
#include "storage/Tables.h"

#include <QSet>

#include <algorithm>

QList<VilleCode> VillesProposees(Base &base) {
  QList<VilleCode> villes;
  QSet<QString> plusieurs;
  for (const VilleCode &ligne : TableVille(base).Toutes()) {
    if (PlusieursCodes(ligne)) {
      if (plusieurs.contains(ligne.Ville)) continue;
      plusieurs.insert(ligne.Ville);
    }
    villes.append(ligne);
  }
  std::ranges::stable_sort(villes, OrdreDesNoms(), &VilleCode::Ville);
  return villes;
}

bool PlusieursCodes(const VilleCode &ville) {
  const QStringList cles = ville.Liens.split(u'*');
  return cles.size() > 1 &&
         std::ranges::all_of(cles, [](const QString &cle) { return cle.toLongLong() > 0; });
}

QStringList CodesDe(Base &base, const VilleCode &ville) {
  const TableVille table(base);
  QStringList codes;
  for (const QString &cle : ville.Liens.split(u'*'))
    if (const auto ligne = table.Lire(cle.toLongLong())) codes.append(ligne->CodePostal);
  return codes;
}
