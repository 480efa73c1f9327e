#include "exchange/FichierRepris.h"

#include "exchange/AncienneBase.h"
#include "exchange/LecteurCartes.h"
#include "platform/Erreurs.h"

#include <algorithm>
#include <utility>

namespace {

/// How much of a file is done, of `kParts`.
constexpr qsizetype kParts = 10'000;

qsizetype Part(const SourcePersonnes &source) {
  const auto taille = static_cast<double>(std::max<qsizetype>(source.Taille(), 1));
  return static_cast<qsizetype>(static_cast<double>(source.Lu()) / taille * kParts);
}

}  // namespace

QString FichierRepris::Constat() const {
  return base ? base->Constat() : QString();
}

bool FichierRepris::SansNom() const {
  return genre == GenreFichier::Tableau && !DonnentUnNom(colonnes);
}

FichierRepris Regarder(const QString &chemin, const ReglesCopie &regles) {
  FichierRepris fichier{.chemin = chemin, .genre = GenreDe(chemin)};
  switch (fichier.genre) {
    case GenreFichier::Tableau:
      fichier.forme = AnalyserCsv(chemin);
      fichier.colonnes = Proposer(fichier.forme);
      break;
    case GenreFichier::Base:
      fichier.base = std::make_shared<const AncienneBase>(chemin, regles);
      break;
    case GenreFichier::Cartes:
      break;
    case GenreFichier::Inconnu:
      throw ErreurFichier(TexteInconnu(chemin));
  }
  return fichier;
}

std::unique_ptr<SourcePersonnes> Ouvrir(const FichierRepris &fichier, const UsagesReprise &usages) {
  if (fichier.base) return OuvrirBase(fichier.base, fichier.chemin, usages);
  if (fichier.genre == GenreFichier::Cartes) return OuvrirCartes(fichier.chemin, usages);
  return OuvrirCsv(fichier.chemin, fichier.forme, fichier.colonnes, usages);
}

bool Parcourir(const QList<FichierRepris> &fichiers, const UsagesReprise &usages,
               const Parcours &parcours, const Avance &avance) {
  constexpr qsizetype kPas = 100;
  const qsizetype total = fichiers.size() * kParts;
  qsizetype fait = 0, lues = 0;
  for (const FichierRepris &fichier : fichiers) {
    const auto source = Ouvrir(fichier, usages);
    parcours.avant(fichier);
    while (auto personne = source->Suivante()) {
      parcours.chacune(*std::move(personne));
      if (++lues % kPas == 0 && !avance(fait + Part(*source), total)) return false;
    }
    parcours.apres(fichier);
    fait += kParts;
    if (!avance(fait, total)) return false;
  }
  return true;
}
