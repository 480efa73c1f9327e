#include "app/Brikel.h"

#include "platform/Erreurs.h"
#include "storage/Dossiers.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Reparation.h"

using namespace Qt::StringLiterals;

namespace {

const QString kAide =
    u"Brikel répare et compacte la base de données de Velmira\n\n"
    "Usage : Brikel [option]\n\n"
    "      --sans-fenetre BASE  répare le fichier BASE et affiche le compte rendu\n"
    "  -h, --help               affiche cette aide\n"
    "  -v, --version            affiche la version\n\n"
    "Sans option, la base de Velmira est réparée, puis Velmira s'ouvre.\n"
    "Le programme finit par 0 quand toutes les lignes ont été gardées, par 1 quand\n"
    "il en manque, par 2 quand rien n'a pu être fait.\n"_s;

Reponse Refus(const QString &texte) {
  return {u"Brikel : "_s + texte + u" Voyez « Brikel --help ».\n"_s, kRienFait};
}

}  // namespace

DemandeBrikel LireDemandeBrikel(const QStringList &mots) {
  for (const QString &mot : mots) {
    if (mot == u"-h"_s || mot == u"--help"_s) return {Reponse{kAide}, {}};
    if (mot == u"-v"_s || mot == u"--version"_s)
      return {Reponse{u"Brikel "_s + QStringLiteral(VELMIRA_VERSION) + u'\n'}, {}};
  }
  if (mots.isEmpty()) return {};
  if (mots.constFirst() != u"--sans-fenetre"_s)
    return {Refus(u"l'option « %1 » est inconnue."_s.arg(mots.constFirst())), {}};
  if (mots.size() != 2 || mots[1].isEmpty())
    return {Refus(u"« --sans-fenetre » est suivi du nom d'un fichier, et de rien d'autre."_s), {}};
  return {std::nullopt, mots[1]};
}

Reponse ReparerSansFenetre(const QString &base, const QDateTime &maintenant,
                           std::chrono::milliseconds attente) {
  try {
    const auto bilan =
        ReparerBase(base, maintenant, attente, [](qsizetype, qsizetype) { return true; });
    return {TexteBilan(*bilan), bilan->Entier() ? kToutGarde : kLignesPerdues};
  } catch (const Erreur &erreur) {
    return {erreur.Texte() + u'\n', kRienFait};
  }
}

QString BaseDeVelmira(const QString &appPath) {
  const auto donnees = LireCheminData(appPath);
  if (!donnees)
    throw ErreurFichier(
        u"Velmira n'a pas encore de base de données à réparer.\nLancez Velmira, puis "
        "recommencez."_s);
  const EmplacementBase emplacement = TrouverBase(appPath, *donnees);
  if (emplacement.etat == EtatChemin::Inaccessible) throw ErreurFichier(emplacement.raison);
  return FichierBase(emplacement.dossier);
}
