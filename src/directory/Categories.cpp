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

QStringList ListerCategories(Base &base) {
  QStringList entrees{Favoris()};
  if (!base.Ouverte()) return entrees;

  QSet<QString> connues{ToutesCategories(), RechercheRapide(), Favoris()};
  for (const QString &categories : TableAdresse(base).Categories())
    for (const QString &nom : categories.split(u'*', Qt::SkipEmptyParts)) {
      if (connues.contains(nom)) continue;
      connues.insert(nom);
      entrees.append(nom);
    }
  return entrees;
}

QStringList CategoriesAuChoix(Base &base) {
  return QStringList{ToutesCategories()} + ListerCategories(base);
}
