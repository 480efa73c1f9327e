#include "address/Villes.h"

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
  std::ranges::stable_sort(villes, [](const VilleCode &a, const VilleCode &b) {
    return a.Ville.compare(b.Ville, Qt::CaseInsensitive) < 0;
  });
  return villes;
}

bool PlusieursCodes(const VilleCode &ville) {
  return ville.Liens.contains(u'*');
}

QStringList CodesDe(Base &base, const VilleCode &ville) {
  const TableVille table(base);
  QStringList codes;
  for (const QString &cle : ville.Liens.split(u'*'))
    if (const auto ligne = table.Lire(cle.toLongLong())) codes.append(ligne->CodePostal);
  return codes;
}
