#pragma once
// The items of combos and lists, the nodes of trees.

#include "player/Analyse.h"
#include "player/Ecran.h"

#include <QAbstractItemView>
#include <QModelIndex>
#include <QStringList>

/// The view of a list or a tree. Throws `Echec` for another control.
QAbstractItemView *Vue(const Controle &controle);

/// All of them in the displayed order, depth first.
QModelIndexList Elements(const Controle &controle);

QStringList Textes(const QModelIndexList &elements);

/// The one that is meant by `"text"`, `"text"#n`, `#i` or `racine`. Throws `Echec`.
QModelIndex Element(const Controle &controle, const Mot &mot);

/// The selected ones.
QModelIndexList Selection(const Controle &controle);

bool EstCoche(const QModelIndex &element);
