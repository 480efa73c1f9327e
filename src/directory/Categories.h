#pragma once
// The categories of correspondents. They have no table: the list of them is what the records hold.

#include "storage/Tables.h"

#include <QList>
#include <QString>

#include <functional>

/// Pseudo-categories, which stand in lists only, and the favourites, stored like any other one.
inline QString ToutesCategories() {
  return QStringLiteral("Toutes catégories");
}
inline QString RechercheRapide() {
  return QStringLiteral("Recherche Rapide");
}
inline QString Favoris() {
  return QStringLiteral("Favoris");
}

/// Whether it is one that records hold, not one that stands in lists only.
inline bool EstEnregistree(const QString &categorie) {
  return categorie != ToutesCategories() && categorie != RechercheRapide();
}

/// Whether a record is in a category: "*" + category + "*" stands in its category string.
inline bool EstDansCategorie(const QString &categories, const QString &categorie) {
  return categories.contains(u'*' + categorie + u'*');
}

/// What the renaming or the deletion of a category makes of a category string.
using RegleCategories = std::function<QString(const QString &)>;

/// A category string without a name, wherever the name stands in it, also as a part of another one:
/// `*Amis*` less Ami is `*s*`, and `*Ami*` leaves a lone star.
QString SansCategorie(QString categories, const QString &nom);

/// The favourites, then the categories in the order in which the table first holds them; while the
/// base is closed the favourites alone. Throws `ErreurBase`.
QStringList ListerCategories(Base &base);

/// What a list of correspondents can show: the same behind all of them.
QStringList CategoriesAuChoix(Base &base);
