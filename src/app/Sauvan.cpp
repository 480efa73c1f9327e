#include "app/Sauvan.h"

#include "address/Titres.h"
#include "platform/Erreurs.h"
#include "storage/Base.h"
#include "storage/Dossiers.h"
#include "storage/Reglages.h"

#include <QDir>
#include <QHash>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

Reponse Refus(const QString &texte) {
  return {u"Sauvan : "_s + texte + u" Voyez « Sauvan --help ».\n"_s, kRienRepris};
}

std::optional<Deja> LireDeja(const QString &mot) {
  static const QHash<QString, Deja> kMots{{u"completer"_s, Deja::Completer},
                                          {u"garder"_s, Deja::Garder},
                                          {u"prendre"_s, Deja::Prendre},
                                          {u"deux"_s, Deja::Deux}};
  const auto lu = kMots.constFind(mot);
  return lu == kMots.cend() ? std::nullopt : std::optional(*lu);
}

int Statut(const BilanReprise &bilan) {
  if (bilan.refuses == 0) return kToutRepris;
  return bilan.Pris() > 0 ? kFichesRefusees : kRienRepris;
}

/// Nobody can be asked whether what is left of a damaged one is wanted.
QList<FichierRepris> RegarderTous(const QStringList &chemins, const ReglesCopie &regles) {
  QList<FichierRepris> fichiers;
  for (const QString &chemin : chemins) {
    fichiers.append(Regarder(chemin, regles));
    if (const QString constat = fichiers.constLast().Constat(); !constat.isEmpty())
      throw ErreurFichier(
          u"La base de données « %1 » est endommagée. Ce qui a pu en être lu :\n%2"_s.arg(
              QDir::toNativeSeparators(chemin), constat));
  }
  return fichiers;
}

}  // namespace

DemandeSauvan LireDemandeSauvan(const QStringList &mots) {
  if (const auto reponse = RepondreAuxOptions(mots, Executable::Sauvan))
    return {.reponse = reponse};
  DemandeSauvan demande;
  qsizetype place = 0;
  for (; place < mots.size() && mots[place].startsWith(u"--"_s); place += 2) {
    const QString &option = mots[place], valeur = mots.value(place + 1);
    if (option == u"--"_s) {
      ++place;
      break;
    }
    if (option == u"--vers"_s && !valeur.isEmpty()) {
      demande.base = valeur;
    } else if (option == u"--deja"_s) {
      const auto deja = LireDeja(valeur);
      if (!deja)
        return {
            .reponse = Refus(
                u"« --deja » est suivi de « completer », « garder », « prendre » ou « deux »."_s)};
      demande.deja = *deja;
    } else if (option == u"--vers"_s) {
      return {.reponse = Refus(u"« --vers » est suivi du nom d'une base."_s)};
    } else {
      return {.reponse = Refus(u"l'option « %1 » est inconnue."_s.arg(option))};
    }
  }
  demande.fichiers = mots.sliced(std::min(place, mots.size()));
  if (demande.base.isEmpty()) return {.reponse = Refus(u"il manque « --vers » et une base."_s)};
  if (demande.fichiers.isEmpty()) return {.reponse = Refus(u"il manque un fichier à reprendre."_s)};
  return demande;
}

Reponse ReprendreSansFenetre(const DemandeSauvan &demande, const QString &appPath,
                             const QString &utilisateur) {
  try {
    Base base;
    base.Ouvrir(demande.base);
    if (!base.Ouverte())
      throw ErreurFichier(
          u"La base « %1 » n'existe pas."_s.arg(QDir::toNativeSeparators(demande.base)));
    const UsagesReprise usages{LireSeparateurTel(appPath), TitresLus(appPath)};
    const QList<FichierRepris> fichiers =
        RegarderTous(demande.fichiers, LireReglesCopie(appPath, usages.separateurTel));
    const BilanReprise bilan = ReprendrePersonnes(
        base, fichiers, usages,
        {.deja = demande.deja,
         .utilisateur = utilisateur,
         .dossierPhotos =
             Dossiers{
                 .AppPath = appPath, .CheminData = {}, .CheminBase = {}, .CheminBaseConfig = {}}
                 .Photos()},
        [](qsizetype, qsizetype) { return true; });
    return {TexteBilan(bilan), Statut(bilan), true};
  } catch (const Erreur &erreur) {
    return {erreur.Texte() + u"\nRien n'a changé dans l'annuaire.\n"_s, kRienRepris};
  }
}
