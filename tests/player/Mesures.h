#pragma once
// The sizes of a window and of all that lies in it, to be held against those at another size of the
// program.

#include <QHash>
#include <QString>
#include <QStringList>
#include <QWidget>

/// Sizes by what they are of, as "loupe: FrmLoupe/LblTel, font".
using Mesures = QHash<QString, double>;

/// Adds those of a window, on the screen or not, under the name of a picture.
void Mesurer(const QString &nom, const QWidget &fenetre, Mesures &mesures);

/// What is not so many times as large as in `dessin`, a sentence each.
QStringList MalAEchelle(const Mesures &dessin, const Mesures &agrandie, double echelle);
