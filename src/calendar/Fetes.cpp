#include "calendar/Fetes.h"

#include "calendar/SansAccents.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

QString CleDeComparaison(const QString &texte) {
  return SansAccents(texte).toUpper();
}

}  // namespace

QString NomDuMois(const QString &mois) {
  constexpr std::array kNoms{u"Janvier",   u"Février", u"Mars",     u"Avril",
                             u"Mai",       u"Juin",    u"Juillet",  u"Aout",
                             u"Septembre", u"Octobre", u"Novembre", u"Décembre"};
  for (std::size_t i = 0; i < kNoms.size(); ++i)
    if (mois == u"%1"_s.arg(i + 1, 2, 10, QChar(u'0'))) return QString::fromUtf16(kNoms[i]);
  return u""_s;
}

QString SansPrefixes(QString noms) {
  return noms.remove(u"St(e) "_s);
}

QStringList Prenoms(const LigneSaints &ligne) {
  QStringList prenoms = ligne.noms.split(u" - "_s);
  for (QString &prenom : prenoms) prenom = SansPrefixes(prenom);
  return prenoms;
}

std::optional<FetePrenom> ChercherFete(const QByteArray &fichier, const QString &prenom) {
  const QString cle = CleDeComparaison(prenom);
  for (const LigneSaints &ligne : LireSaints(fichier)) {
    if (!ligne.entiere) return {};
    if (!CleDeComparaison(ligne.noms).contains(cle)) continue;
    for (const QString &nom : Prenoms(ligne))
      if (CleDeComparaison(nom) == cle) return FetePrenom{ligne, nom};
  }
  return {};
}
