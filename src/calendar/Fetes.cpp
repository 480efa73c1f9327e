#include "calendar/Fetes.h"

#include "calendar/SansAccents.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

QString CleDeComparaison(const QString &texte) {
  return SansAccents(texte).toUpper();
}

}  // namespace

QString NomDuMois(int mois) {
  constexpr std::array kNoms{u"Janvier",   u"Février", u"Mars",     u"Avril",
                             u"Mai",       u"Juin",    u"Juillet",  u"Aout",
                             u"Septembre", u"Octobre", u"Novembre", u"Décembre"};
  if (mois < 1 || mois > 12) return u""_s;
  return QString::fromUtf16(kNoms[static_cast<std::size_t>(mois - 1)]);
}

QString SansPrefixes(QString noms) {
  return noms.remove(u"St(e) "_s);
}

QStringList Prenoms(const LigneSaints &ligne) {
  QStringList prenoms = ligne.noms.split(u" - "_s);
  for (QString &prenom : prenoms) prenom = SansPrefixes(prenom);
  return prenoms;
}

std::optional<FetePrenom> ChercherFete(const QList<LigneSaints> &saints, const QString &prenom) {
  const QString cle = CleDeComparaison(prenom);
  for (const LigneSaints &ligne : saints) {
    if (!ligne.entiere) return {};
    if (!CleDeComparaison(ligne.noms).contains(cle)) continue;
    for (const QString &nom : Prenoms(ligne))
      if (CleDeComparaison(nom) == cle) return FetePrenom{ligne, nom};
  }
  return {};
}
