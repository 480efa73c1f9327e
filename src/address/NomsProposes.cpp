#include "address/NomsProposes.h"

#include "address/Titres.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The word belongs to the family name that follows it.
bool EstParticule(const QString &mot) {
  static const QStringList kParticules{u"de"_s,  u"du"_s,  u"des"_s, u"la"_s,  u"le"_s,
                                       u"les"_s, u"von"_s, u"van"_s, u"der"_s, u"den"_s,
                                       u"di"_s,  u"da"_s,  u"el"_s,  u"ben"_s};
  return kParticules.contains(mot, Qt::CaseInsensitive);
}

/// An initial is no such word.
bool EstEnCapitales(const QString &mot) {
  return mot.size() > 1 && mot.isUpper() && mot != mot.toLower();
}

QString Assembler(const QStringList &devant, const QStringList &derriere) {
  return (devant + derriere).join(u' ');
}

QString SansParentheses(const QString &nom) {
  const qsizetype debut = nom.indexOf(u'(');
  return (debut > 0 ? nom.left(debut) : nom).simplified();
}

/// How many words at the front are the family's.
qsizetype MotsDeFamille(const QStringList &mots) {
  qsizetype n = 0;
  while (n < mots.size() && EstEnCapitales(mots[n])) ++n;
  if (n > 0 && n < mots.size()) return n;
  n = 0;
  while (n < mots.size() - 1 && EstParticule(mots[n])) ++n;
  return n + 1;
}

/// Whether the family name stands in front already, and says so by its capitals; two of them may be
/// initials.
bool CommencentParFamille(const QStringList &mots) {
  qsizetype lettres = 0;
  for (const QString &mot : mots) {
    if (!EstEnCapitales(mot)) return lettres > 2;
    lettres += mot.size();
  }
  return false;
}

/// Where the family name begins in words that end with it.
qsizetype DebutDeFamille(const QStringList &mots) {
  const auto capitales = std::ranges::find_if(mots, EstEnCapitales);
  if (capitales != mots.begin() && capitales != mots.end()) return capitales - mots.begin();
  qsizetype debut = mots.size() - 1;
  while (debut > 1 && EstParticule(mots[debut - 1])) --debut;
  return debut;
}

}  // namespace

QString NomPourEnveloppe(const QString &liste) {
  const QString nom = SansParentheses(liste);
  if (const qsizetype virgule = nom.indexOf(u','); virgule > 0)
    return (nom.mid(virgule + 1) + u' ' + nom.left(virgule)).simplified();
  const QStringList mots = nom.split(u' ', Qt::SkipEmptyParts);
  const qsizetype famille = MotsDeFamille(mots);
  if (famille >= mots.size() || mots[famille].front().isLower()) return nom;
  return Assembler(mots.mid(famille), mots.first(famille));
}

QString NomPourListe(const QString &enveloppe, const QStringList &titres) {
  const QString nom = RemplacerTitre(SansParentheses(enveloppe), titres, u""_s);
  const QStringList mots = nom.split(u' ', Qt::SkipEmptyParts);
  const bool societe = enveloppe.startsWith(u"Société "_s);
  if (mots.size() < 2 || societe || CommencentParFamille(mots)) return nom;
  const qsizetype debut = DebutDeFamille(mots);
  const bool club = debut < mots.size() - 1 && mots.last().front().isLower() &&
                    mots.first().front().isUpper();  // "Club de boules"
  return club ? nom : Assembler(mots.mid(debut), mots.first(debut));
}

QString PrenomCertain(const QString &liste, const QString &enveloppe, bool personne,
                      const QStringList &titres) {
  const auto premier = [](const QString &nom) { return nom.simplified().section(u' ', 0, 0); };
  const QString prenom = premier(NomPourEnveloppe(liste)), tete = premier(liste);
  if (prenom == tete) return {};
  if (!enveloppe.trimmed().isEmpty())
    return premier(RemplacerTitre(enveloppe, titres, u""_s)) == prenom ? prenom : QString();
  return personne || tete.endsWith(u',') || EstEnCapitales(tete) ? prenom : QString();
}

QString Initiales(const QString &liste) {
  QString initiales;
  for (const QString &mot : SansParentheses(liste).split(u' ', Qt::SkipEmptyParts))
    if (mot.front().isLetterOrNumber() && !EstParticule(mot) && initiales.size() < 2)
      initiales += mot.front().toUpper();
  return initiales;
}
