#include "app/LigneDeCommande.h"

using namespace Qt::StringLiterals;

namespace {

const QString kAide =
    u"Velmira, répertoire personnel qui imprime des enveloppes\n\n"
    "Usage : velmira [option]\n\n"
    "  -h, --help     affiche cette aide\n"
    "  -v, --version  affiche la version\n\n"
    "Sans option, le programme s'ouvre ; la touche F1 y ouvre son guide.\n"_s;

}  // namespace

std::optional<Reponse> RepondreAuxOptions(const QStringList &mots) {
  for (const QString &mot : mots) {
    if (mot == u"-h"_s || mot == u"--help"_s) return Reponse{kAide};
    if (mot == u"-v"_s || mot == u"--version"_s)
      return Reponse{u"Velmira "_s + QStringLiteral(VELMIRA_VERSION) + u'\n'};
  }
  return std::nullopt;
}

std::optional<Reponse> RefuserDeDemarrer(const QStringList &mots, bool ecran) {
  if (!mots.isEmpty())
    return Reponse{u"velmira : l'option « %1 » est inconnue. Voyez « velmira --help ».\n"_s.arg(
                       mots.constFirst()),
                   2};
  if (!ecran) return Reponse{u"Velmira a besoin d'un écran : lancez-le depuis un bureau.\n"_s, 1};
  return std::nullopt;
}

bool NommeUnEcran(const QStringList &environnement) {
  for (const QString &variable : environnement)
    for (const QString &nom : {u"DISPLAY="_s, u"WAYLAND_DISPLAY="_s, u"QT_QPA_PLATFORM="_s})
      if (variable.startsWith(nom) && variable.size() > nom.size()) return true;
  return false;
}
