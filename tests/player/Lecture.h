#pragma once
// What a person sees of a control.

#include "player/Ecran.h"

#include <QColor>
#include <QFont>

/// Caption, content, or text of the current item, without the marks of keys. Throws `Echec` for a
/// control without a text.
QString Texte(const Controle &controle);
bool EstVisible(const Controle &controle);
bool EstActif(const Controle &controle);
bool EstCoche(const Controle &controle);
QFont PoliceDe(const Controle &controle);
QColor CouleurTexte(const Controle &controle);
QColor CouleurFond(const Controle &controle);
/// `gauche`, `droite` or `centre`.
QString AlignementDe(const Controle &controle);
