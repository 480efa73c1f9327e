#pragma once
// The page on which it is measured what a printer does to the paper: a cross in the middle, rulers
// in millimetres along the four edges, a ruler to be measured in each direction, and two arrows
// where the sheet goes in first. Places are counted from the paper's corner.

#include "envelope/MiseEnPage.h"
#include "platform/Imprimante.h"

#include <QString>

#include <stop_token>
#include <vector>

/// A straight line.
struct Trait {
  Point de, a;
  Millimetres epaisseur{0.2};
};

struct PageEtalon {
  std::vector<Trait> traits;
  std::vector<LignePlacee> lignes;
};

/// Where cross and rulers are on paper that came out right. A ruler is as long as fits, 100 mm at
/// most.
MesureEtalon EtalonVoulu(const Taille &page);

PageEtalon DessinerEtalon(const Papier &papier, const QString &appareil,
                          const Correction &enVigueur, const MesureTexte &mesure);

/// Prints the page, corrected by what is in force. Throws `Erreur` where the printer cannot be had.
/// Any thread may run it; `arret` ends its waiting for the system.
FinImpression ImprimerEtalon(Imprimante &imprimante, const QString &appareil, const Papier &papier,
                             const Correction &enVigueur, const std::stop_token &arret = {});

/// What a correction does to such pages, for the user: "3 mm à gauche, taille 101,5 %". Empty
/// for one that changes nothing.
QString TexteCorrection(const Correction &correction, const Taille &page);
