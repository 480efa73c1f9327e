#pragma once

#include "envelope/MiseEnPage.h"

#include <QString>

#include <vector>

/// What has become of envelopes that were to be printed.
struct FinEnvoi {
  enum class Issue {
    Faite,       ///< printed, or written to a file
    Refusee,     ///< nothing of them was printed
    Arretee,     ///< given up before the printer had anything
    Incertaine,  ///< the printer has kept silent, or was given up: what it has may be printed
  };

  Issue issue = Issue::Arretee;
  FinImpression impression = {};  ///< what the printer tells where it is `Faite`, and why it is not

  bool EstFaite() const { return issue == Issue::Faite; }
};

/// Hands a document of these envelopes to a printer. Never throws an `Erreur`; any thread may run
/// it.
FinEnvoi Remettre(Imprimante &imprimante, const QString &appareil, const ReglagesPlomex &plomex,
                  const Imprimantes &imprimantes, const std::vector<Pli> &plis,
                  const Conduite &conduite);

/// What is told where it is `Incertaine`.
QString TexteSansReponse(const QString &appareil);
