#include "envelope/Envoi.h"

#include "platform/Erreurs.h"

FinEnvoi Remettre(Imprimante &imprimante, const QString &appareil, const ReglagesPlomex &plomex,
                  const Imprimantes &imprimantes, const std::vector<Pli> &plis,
                  const Conduite &conduite) {
  using Issue = FinEnvoi::Issue;
  try {
    const auto fin = ImprimerPlis(imprimante, appareil, plomex, imprimantes, plis, conduite);
    if (!fin) return {Issue::Arretee};
    if (fin->issue != FinImpression::Issue::Echouee) return {Issue::Faite, *fin};
    return {conduite.arret.stop_requested() ? Issue::Abandonnee : Issue::Refusee, *fin};
  } catch (const Erreur &erreur) {
    if (conduite.arret.stop_requested()) return {Issue::Arretee};
    return {Issue::Refusee, {.raison = erreur.Texte()}};
  }
}
