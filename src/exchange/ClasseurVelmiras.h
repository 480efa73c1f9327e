#pragma once

#include "platform/Classeur.h"
#include "storage/Lignes.h"

#include <QList>

/// The sheet "VELMIRA": a row of titles, then one row a correspondent. Columns are as wide as their
/// longest line, rows as high as the lines of the address.
FeuilleClasseur FeuilleVelmiras(const QList<Correspondant> &velmiras);
