#include "directory/Categories.h"

#include <QSet>

QList<EntreeCategorie> CollecterCategories(const QList<CategoriesDistinctes> &lues,
                                           bool rechercheRapide) {
  QList<EntreeCategorie> entrees;
  if (rechercheRapide) entrees.append({RechercheRapide()});
  entrees.append({ToutesCategories()});
  entrees.append({Favoris()});

  QSet<QString> connues{RechercheRapide(), Favoris()};
  for (const CategoriesDistinctes &distinctes : lues)
    for (const QString &nom : distinctes.Categories.split(u'*', Qt::SkipEmptyParts)) {
      if (connues.contains(nom)) continue;
      connues.insert(nom);
      entrees.append({nom, distinctes.Premier});
    }
  return entrees;
}
