#pragma once
// The verbs of the language, by subject.

#include "player/Analyse.h"
#include "player/Scene.h"

using Mots = QList<Mot>;

struct Verbe {
  QString nom;  ///< with the second word, where that is what tells the verb
  qsizetype minimum, maximum;
  void (*faire)(Scene &scene, const Mots &mots);

  static constexpr qsizetype kSansLimite = 1000;
};

QList<Verbe> VerbesDuMonde();
QList<Verbe> VerbesDesGestes();
QList<Verbe> VerbesDesControles();  ///< checks of windows and controls
QList<Verbe> VerbesDesTraces();     ///< checks of boxes, rows, files, pages
QList<Verbe> VerbesDuClasseur();    ///< checks of the workbook opened last

/// Runs a command. Throws `Echec`, for an unknown verb too, and `Reessayer`.
void Executer(Scene &scene, const Commande &commande);

/// A word as a number. Throws `Echec`.
int Nombre(const Mot &mot);
double NombreDecimal(const Mot &mot);
QStringList Textes(const Mots &mots, qsizetype premier);
