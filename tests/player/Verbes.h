#pragma once
// The verbs of the language.

#include "player/Analyse.h"
#include "player/Scene.h"

#include <functional>

struct Verbe {
  QString nom;  ///< with the second word, where that is what tells the verb
  qsizetype minimum, maximum;
  std::function<void(Scene &scene, const Mots &mots)> faire;
  /// Something that the user does: what the program told before must have been looked at.
  bool acte = false;
};

constexpr qsizetype kSansLimite = 1000;

// Short, for the tables of verbs.
using S = Scene;
using M = Mots;

/// The last of its words is the text that is read.
Verbe Valeur(const QString &nom, qsizetype mots,
             const std::function<QString(S &, const M &)> &lire);

QList<Verbe> VerbesDuMonde();       ///< files and rows
QList<Verbe> VerbesDesGestes();     ///< acts of the user
QList<Verbe> VerbesDesControles();  ///< checks of windows and controls
QList<Verbe> VerbesDesTraces();     ///< boxes, clock, desktop, pages, workbooks

/// Runs a command. Throws `Echec`, for an unknown verb too, and `Reessayer`.
void Executer(Scene &scene, const Commande &commande);

/// A word as a number. Throws `Echec`.
double Nombre(const Mot &mot);
QStringList Textes(const Mots &mots, qsizetype premier);
