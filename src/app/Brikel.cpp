#include "app/Brikel.h"

#include "platform/Erreurs.h"
#include "storage/Reparation.h"

using namespace Qt::StringLiterals;

namespace {

Reponse Refus(const QString &texte) {
  return {u"Brikel : "_s + texte + u" Voyez « Brikel --help ».\n"_s, kRienFait};
}

}  // namespace

DemandeBrikel LireDemandeBrikel(const QStringList &mots) {
  if (const auto reponse = RepondreAuxOptions(mots, Executable::Brikel))
    return {.reponse = reponse};
  if (mots.isEmpty()) return {};
  if (mots == QStringList{u"--demander"_s}) return {.demander = true};
  if (mots.constFirst() != u"--sans-fenetre"_s)
    return {.reponse = Refus(u"l'option « %1 » est inconnue."_s.arg(mots.constFirst()))};
  if (mots.size() != 2 || mots[1].isEmpty())
    return {.reponse =
                Refus(u"« --sans-fenetre » est suivi du nom d'un fichier, et de rien d'autre."_s)};
  return {.base = mots[1]};
}

Reponse ReparerSansFenetre(const QString &base, const QDateTime &maintenant,
                           std::chrono::milliseconds attente) {
  try {
    const auto bilan =
        ReparerBase(base, maintenant, attente, [](qsizetype, qsizetype) { return true; });
    return {TexteBilan(*bilan), bilan->Entier() ? kToutGarde : kLignesPerdues, true};
  } catch (const Erreur &erreur) {
    return {erreur.Texte() + u'\n', kRienFait};
  }
}
