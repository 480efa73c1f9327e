#pragma once

#include "platform/Classeur.h"
#include "storage/Avance.h"
#include "storage/Lignes.h"

#include <QList>
#include <QString>

#include <optional>

class Base;

/// The sheet "VELMIRA": a row of titles, then one row a correspondent. Columns are as wide as their
/// longest line, rows as high as the lines of the address.
FeuilleClasseur FeuilleVelmiras(const QList<Correspondant> &velmiras);

/// Writes the correspondents of these keys, without those that another user has deleted meanwhile,
/// and gives the path of the workbook; nothing when it was stopped. It lies write-protected in a
/// new folder below `dossier`: what its user changes is saved at a place of his own, and a
/// spreadsheet that shows an earlier one does not take it for the same. Throws `ErreurBase` and
/// `ErreurFichier`; nothing is left then.
std::optional<QString> EcrireClasseur(Classeur &classeur, const QString &dossier, Base &base,
                                      const QList<Cle> &cles, const Avance &avance);
