#include "app/LigneDeCommande.h"

using namespace Qt::StringLiterals;

namespace {

const QString kFiche = u"--fiche"_s;
const QString kEnveloppe = u"--enveloppe"_s;

const QString kAide =
    u"Velmira, répertoire personnel qui imprime des enveloppes\n\n"
    "Usage : velmira [option]\n\n"
    "  --fiche CLE    s'ouvre sur une fiche, par sa clé ou son nom ; s'il y en a\n"
    "                 plusieurs, ou aucune, sur la recherche de ce nom\n"
    "  --enveloppe    avec --fiche, prépare aussi l'enveloppe\n"
    "  -h, --help     affiche cette aide\n"
    "  -v, --version  affiche la version\n\n"
    "Sans option, le programme s'ouvre ; la touche F1 y ouvre son guide.\n"_s;

const QString kAideVigilo =
    u"Vigilo montre les alertes de Velmira\n\n"
    "Usage : Vigilo [auto | option]\n\n"
    "  auto           au démarrage de la session : ne dit que ce qui est à signaler\n"
    "  --montrer      montre sa fenêtre, même s'il n'y a rien à signaler\n"
    "  --liste        écrit les alertes à signaler et manquées, une par ligne\n"
    "  -h, --help     affiche cette aide\n"
    "  -v, --version  affiche la version\n\n"
    "Sans option, une fenêtre ne s'ouvre que s'il y a quelque chose à signaler.\n"_s;

const QString kAideMemora =
    u"Memora garde jusqu'à trois notes sur l'écran\n\n"
    "Usage : Memora [auto | option]\n\n"
    "  auto           montre les notes qui étaient affichées\n"
    "  -h, --help     affiche cette aide\n"
    "  -v, --version  affiche la version\n\n"
    "Sans option, toutes les notes s'affichent.\n"_s;

const QString kAideBrikel =
    u"Brikel répare et compacte la base de données de Velmira\n\n"
    "Usage : Brikel [option]\n\n"
    "      --demander           demande avant de réparer la base de Velmira\n"
    "      --sans-fenetre BASE  répare le fichier BASE et affiche le compte rendu\n"
    "  -h, --help               affiche cette aide\n"
    "  -v, --version            affiche la version\n\n"
    "Sans option, la base de Velmira est réparée, puis Velmira s'ouvre.\n"
    "Le programme finit par 0 quand toutes les lignes ont été gardées, par 1 quand\n"
    "il en manque, par 2 quand rien n'a pu être fait.\n"_s;

const QString kAideSauvan =
    u"Sauvan reprend dans Velmira les fichiers d'autres programmes\n\n"
    "Usage : Sauvan [--fenetre] [FICHIER...]\n"
    "        Sauvan --vers BASE [--deja CHOIX] FICHIER...\n\n"
    "  --fenetre      ouvre sa fenêtre, sans ouvrir Velmira ensuite\n"
    "  --vers BASE    la base de Velmira où ajouter les correspondants\n"
    "  --deja CHOIX   ce que deviennent ceux qui y sont déjà, au même nom :\n"
    "                   completer  remplir ce qui est vide (sans option)\n"
    "                   garder     les laisser comme ils sont\n"
    "                   prendre    mettre ce que dit le fichier\n"
    "                   deux       garder les deux\n"
    "  -h, --help     affiche cette aide\n"
    "  -v, --version  affiche la version\n\n"
    "Sans option ni fichier, la fenêtre de Sauvan s'ouvre, puis Velmira.\n"
    "Un FICHIER contient des cartes de visite (vCard) ou un tableau (CSV).\n"
    "Le programme finit par 0 quand tout a été repris, par 1 quand des fiches ont\n"
    "été refusées, par 2 quand rien n'a pu être fait.\n"_s;

struct Portrait {
  QString nom, commande, aide;
  QStringList options;
};

Portrait PortraitDe(Executable programme) {
  switch (programme) {
    case Executable::Vigilo:
      return {u"Vigilo"_s, u"Vigilo"_s, kAideVigilo, {u"auto"_s, u"--montrer"_s, u"--liste"_s}};
    case Executable::Memora:
      return {u"Memora"_s, u"Memora"_s, kAideMemora, {u"auto"_s}};
    case Executable::Brikel:
      return {u"Brikel"_s, u"Brikel"_s, kAideBrikel, {}};
    case Executable::Sauvan:
      return {u"Sauvan"_s, u"Sauvan"_s, kAideSauvan, {}};
    case Executable::Velmira:
      break;
  }
  return {u"Velmira"_s, u"velmira"_s, kAide, {}};
}

/// The first word that is none of the program's; empty when all are.
QString Inconnu(QStringList mots, Executable programme) {
  if (programme == Executable::Velmira) {
    const qsizetype fiche = mots.indexOf(kFiche);
    if (fiche >= 0 && fiche + 1 < mots.size()) {
      mots.remove(fiche, 2);
      mots.removeOne(kEnveloppe);
    }
    return mots.value(0);
  }
  const QStringList options = PortraitDe(programme).options;
  if (!mots.isEmpty() && options.contains(mots.constFirst())) mots.removeFirst();
  return mots.value(0);
}

}  // namespace

std::optional<Reponse> RepondreAuxOptions(const QStringList &mots, Executable programme) {
  const Portrait portrait = PortraitDe(programme);
  for (const QString &mot : mots) {
    if (mot == u"-h"_s || mot == u"--help"_s) return Reponse{portrait.aide};
    if (mot == u"-v"_s || mot == u"--version"_s)
      return Reponse{portrait.nom + u' ' + QStringLiteral(VELMIRA_VERSION) + u'\n'};
    if (mot == kFiche) break;  // what follows is a name
  }
  return std::nullopt;
}

std::optional<Reponse> RefuserDeDemarrer(const QStringList &mots, bool ecran,
                                         Executable programme) {
  const Portrait portrait = PortraitDe(programme);
  if (const QString inconnu = Inconnu(mots, programme); !inconnu.isEmpty())
    return Reponse{u"%1 : l'option « %2 » est inconnue. Voyez « %1 --help ».\n"_s.arg(
                       portrait.commande, inconnu),
                   2};
  if (!ecran)
    return Reponse{u"%1 a besoin d'un écran : lancez-le depuis un bureau.\n"_s.arg(portrait.nom),
                   1};
  return std::nullopt;
}

bool NommeUnEcran(const QStringList &environnement) {
  for (const QString &variable : environnement)
    for (const QString &nom : {u"DISPLAY="_s, u"WAYLAND_DISPLAY="_s, u"QT_QPA_PLATFORM="_s})
      if (variable.startsWith(nom) && variable.size() > nom.size()) return true;
  return false;
}

std::optional<FicheVoulue> LireFicheVoulue(const QStringList &mots) {
  const qsizetype fiche = mots.indexOf(kFiche);
  if (fiche < 0 || fiche + 1 >= mots.size()) return std::nullopt;
  const bool enveloppe =
      mots.first(fiche).contains(kEnveloppe) || mots.sliced(fiche + 2).contains(kEnveloppe);
  return FicheVoulue{mots[fiche + 1], enveloppe};
}

QStringList MotsDe(const FicheVoulue &fiche) {
  QStringList mots{kFiche, fiche.cible};
  if (fiche.enveloppe) mots.append(kEnveloppe);
  return mots;
}
