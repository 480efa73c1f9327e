#include "app/Sauvan.h"

#include "address/Titres.h"
#include "exchange/TextesReprise.h"
#include "platform/Erreurs.h"
#include "storage/Base.h"
#include "storage/Dossiers.h"
#include "storage/Reglages.h"
#include "storage/Sauvegardes.h"

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

/// What else there is to be told of a taking over that is done.
QString Reserves(const BilanReprise &bilan, const SauvegardeFaite &copie, const QString &appPath) {
  QString texte;
  if (!copie.panne.isEmpty()) texte += u'\n' + copie.panne + u'\n';
  try {
    if (bilan.ancienneBase) NoterRecuperation(appPath, bilan.adressesImportees);
  } catch (const ErreurFichier &erreur) {
    texte += u'\n' + erreur.Texte() + u'\n';
  }
  return texte;
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
  DemandeSauvan demande{.retour = mots.isEmpty()};
  bool choisi = false;
  qsizetype place = mots.value(0) == u"--fenetre"_s ? 1 : 0;
  const bool fenetre = place == 1;
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
      choisi = true;
    } else if (option == u"--vers"_s) {
      return {.reponse = Refus(u"« --vers » est suivi du nom d'une base."_s)};
    } else {
      return {.reponse = Refus(u"l'option « %1 » est inconnue."_s.arg(option))};
    }
  }
  demande.fichiers = mots.sliced(std::min(place, mots.size()));
  if (demande.base.isEmpty())
    return choisi ? DemandeSauvan{.reponse = Refus(u"« --deja » va avec « --vers »."_s)} : demande;
  if (fenetre) return {.reponse = Refus(u"« --fenetre » va sans « --vers »."_s)};
  if (demande.fichiers.isEmpty()) return {.reponse = Refus(u"il manque un fichier à reprendre."_s)};
  return demande;
}

int StatutDe(const BilanReprise &bilan) {
  if (bilan.refuses == 0) return kToutRepris;
  return bilan.Pris() + bilan.tables.Ajoutees() > 0 ? kFichesRefusees : kRienRepris;
}

Reponse ReprendreSansFenetre(const DemandeSauvan &demande, const QString &appPath,
                             const QString &utilisateur, const QDateTime &maintenant) {
  try {
    Base base;
    base.Ouvrir(demande.base);
    if (!base.Ouverte())
      throw ErreurFichier(
          u"La base « %1 » n'existe pas."_s.arg(QDir::toNativeSeparators(demande.base)));
    const UsagesReprise usages{LireSeparateurTel(appPath), TitresLus(appPath)};
    const QList<FichierRepris> fichiers =
        RegarderTous(demande.fichiers, LireReglesCopie(appPath, usages.separateurTel));
    const SauvegardeFaite copie = Sauvegarder({base.Chemin(), LireDossierChoisi(appPath)},
                                              maintenant, MotifSauvegarde::Import);
    const BilanReprise bilan = ReprendrePersonnes(
        base, fichiers, usages,
        {.deja = demande.deja,
         .utilisateur = utilisateur,
         .dossierPhotos =
             Dossiers{
                 .AppPath = appPath, .CheminData = {}, .CheminBase = {}, .CheminBaseConfig = {}}
                 .Photos()},
        [](qsizetype, qsizetype) { return true; });
    return {TexteBilan(bilan) + Reserves(bilan, copie, appPath), StatutDe(bilan), true};
  } catch (const Erreur &erreur) {
    return {erreur.Texte() + u"\nRien n'a changé dans Velmira.\n"_s, kRienRepris};
  }
}
