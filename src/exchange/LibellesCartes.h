#pragma once
// What the properties of address cards are called in notes, and which of them tell nothing of the
// person.

#include "exchange/DecoupageCartes.h"

#include <QByteArray>
#include <QString>

/// The word that a note of the property begins with; its own name where that has no French one.
QString LibelleDePropriete(const QByteArray &nom);

/// A label of a group: the common ones in French, the user's own as they are.
QString LibelleDeGroupe(QString libelle);

/// What tells of the card and not of the person.
bool EstTechnique(const Propriete &propriete);
