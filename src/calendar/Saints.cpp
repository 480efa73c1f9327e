#include "calendar/Saints.h"

#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"

#include <algorithm>

using namespace Qt::StringLiterals;

std::optional<QList<LigneSaints>> ChargerSaints(const QString &appPath) {
  const auto octets = LireFichier(appPath + u"/Saints.txt"_s);
  return octets ? std::optional(LireSaints(*octets)) : std::nullopt;
}

QList<LigneSaints> LireSaints(const QByteArray &fichier) {
  constexpr qsizetype kJour = 1, kMois = 3, kNoms = 8;
  QList<LigneSaints> lignes;
  QStringList textes = DepuisPageDeCode(fichier).split(u'\n');
  if (textes.constLast().isEmpty()) textes.removeLast();  // behind the last line end
  for (QString &texte : textes) {
    if (texte.endsWith(u'\r')) texte.chop(1);
    const qsizetype noms = texte.size() - kNoms - 1;
    lignes.append({.jour = texte.mid(kJour, 2),
                   .mois = texte.mid(kMois, 2),
                   .noms = noms > 0 ? texte.mid(kNoms, noms) : u""_s,
                   .entiere = noms >= 0});
  }
  return lignes;
}

std::optional<LigneSaints> LigneDuJour(const QList<LigneSaints> &saints, const QString &jjmm) {
  const auto trouvee = std::ranges::find_if(
      saints, [&](const LigneSaints &ligne) { return ligne.jour + ligne.mois == jjmm; });
  if (trouvee == saints.end()) return {};
  return *trouvee;
}

QString SaintsDuJour(const QList<LigneSaints> &saints, QDate jour) {
  return LigneDuJour(saints, jour.toString(u"ddMM"_s)).value_or(LigneSaints()).noms;
}
