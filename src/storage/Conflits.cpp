#include "storage/Conflits.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// What is shown of a value: where it is long, what stands around its first difference from the
/// other.
QString Extrait(const QString &valeur, const QString &autre) {
  constexpr qsizetype kMontres = 160, kAvant = 40;
  if (valeur.isEmpty()) return u"(vide)"_s;
  if (valeur.size() <= kMontres && autre.size() <= kMontres) return u"« "_s + valeur + u" »"_s;
  const auto difference = std::mismatch(valeur.begin(), valeur.end(), autre.begin(), autre.end());
  const qsizetype debut =
      std::max<qsizetype>(0, std::distance(valeur.begin(), difference.first) - kAvant);
  const QString milieu = valeur.mid(debut, kMontres);
  return u"« "_s + (debut > 0 ? u"..."_s : u""_s) + milieu +
         (debut + milieu.size() < valeur.size() ? u"..."_s : u""_s) + u" »"_s;
}

}  // namespace

QString TexteConflit(const QList<ChampEnConflit> &champs) {
  QString texte = champs.size() == 1
                      ? u"Un autre utilisateur a modifié le même champ entre-temps.\n"_s
                      : u"Un autre utilisateur a modifié les mêmes champs entre-temps.\n"_s;
  for (const auto &[nom, mienne, sienne] : champs)
    texte += u"\n%1\n   vous : %2\n   l'autre utilisateur : %3\n"_s.arg(
        nom, Extrait(mienne, sienne), Extrait(sienne, mienne));
  return texte +
         u"\nGarder ce que vous avez saisi ?\n\n"
         "Oui : vos valeurs sont enregistrées.\n"
         "Non : celles de l'autre utilisateur restent.\n"
         "Annuler : rien n'est enregistré, vous revenez à la saisie."_s;
}
