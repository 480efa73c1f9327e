#pragma once

#include <QString>

/// The text with its accented letters folded to plain ones, case kept. Letters outside the table of
/// the folding ("Œ", "Ý") stay.
QString SansAccents(QString texte);
