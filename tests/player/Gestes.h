#pragma once
// What a person does with the mouse and the keyboard. Controls have been reached before; what
// cannot be done with one throws `Echec`.

#include "player/Ecran.h"

#include <QUrl>

enum class Clic { Simple, Double, Droit };

void Cliquer(const Controle &controle, Clic clic);
void CliquerElement(const Controle &controle, const QModelIndex &element, Clic clic,
                    Qt::KeyboardModifiers avec = {});
/// The box of an item.
void CliquerCase(const Controle &controle, const QModelIndex &element);
/// Whether a mark is seen in the box of an item.
bool CocheEstPeinte(const Controle &controle, const QModelIndex &element);

/// Selects an item as a user's choice does. In a list of several selections it adds the item, and
/// takes it out where `choisi` is false.
void Choisir(const Controle &controle, const Mot &mot, bool choisi);
void Derouler(const Controle &controle);

/// Types a text key by key, in the place of the old one or behind it.
void Taper(const Controle &controle, const QString &texte, bool remplacer);

/// Presses a key: its sign, or a name as `Suppr` or `F5`, with `Ctrl+`, `Maj+`, `Alt+` in front.
void Toucher(const Controle &controle, const QString &touche);

/// Drags a control with the left button by millimetres of its picture, in whole pixels.
void Glisser(const Controle &controle, double dx, double dy);

/// Drops what a file manager drops for these addresses.
void Deposer(const Controle &controle, const QList<QUrl> &adresses);

void Quitter(const Controle &controle);
void Survoler(const Controle &controle);
