#include "envelope/Envoi.h"

#include "platform/Erreurs.h"

using namespace Qt::StringLiterals;

FinEnvoi Remettre(Imprimante &imprimante, const QString &appareil, const ReglagesPlomex &plomex,
                  const Imprimantes &imprimantes, const std::vector<Pli> &plis,
                  const Conduite &conduite) {
  using Issue = FinEnvoi::Issue;
  try {
    const auto fin = ImprimerPlis(imprimante, appareil, plomex, imprimantes, plis, conduite);
    if (!fin) return {Issue::Arretee};
    switch (fin->issue) {
      case FinImpression::Issue::Echouee:
        if (conduite.arret.stop_requested()) return {Issue::Incertaine};
        return {Issue::Refusee, *fin};
      case FinImpression::Issue::Incertaine:
        return {Issue::Incertaine, *fin};
      default:
        return {Issue::Faite, *fin};
    }
  } catch (const Erreur &erreur) {
    if (conduite.arret.stop_requested()) return {Issue::Arretee};
    return {Issue::Refusee, {.raison = erreur.Texte()}};
  }
}

QString TexteSansReponse(const QString &appareil) {
  return u"Sans réponse de « %1 » : ce qu'elle avait déjà reçu peut encore sortir."_s.arg(appareil);
}
