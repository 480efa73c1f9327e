#include "directory/Categories.h"

#include <QSet>

using namespace Qt::StringLiterals;

QString SansCategorie(QString categories, const QString &nom) {
  categories.remove(nom);
  if (categories.contains(u"**"_s)) return categories.replace(u"**"_s, u"*"_s);
  const bool devant = categories.startsWith(u'*'), derriere = categories.endsWith(u'*');
  if (devant != derriere) categories = devant ? categories.mid(1) : categories.chopped(1);
  return categories;
}

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
