#include "address/Villes.h"

#include "address/CodesPostaux.h"
#include "platform/Erreurs.h"
#include "storage/Noms.h"
#include "storage/Tables.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

/// Letter by letter, so that a beginning keeps its length.
QString SansAccent(QString texte) {
  for (QChar &c : texte)
    if (const QString lettre = c.decomposition(); !lettre.isEmpty()) c = lettre.front();
  return EnCapitales(texte);
}

/// What a town is known by, in the remembered spelling and in the one of the delivered list.
QString Connue(const QString &ville) {
  QStringList mots = SansAccent(ville).replace(u'-', u' ').replace(u'\'', u' ').split(u' ');
  mots.removeAll(QString());
  for (QString &mot : mots) {
    if (mot == u"SAINT") mot = u"ST"_s;
    if (mot == u"SAINTE") mot = u"STE"_s;
  }
  return mots.join(u' ');
}

/// Small letters, but for the first one of each word that is a name.
QString EnPetites(const QString &ville) {
  static const QStringList kLiens{u"en"_s, u"de"_s,  u"du"_s,  u"des"_s,  u"la"_s,
                                  u"le"_s, u"les"_s, u"sur"_s, u"sous"_s, u"et"_s,
                                  u"au"_s, u"aux"_s, u"d"_s,   u"l"_s};
  QStringList mots = ville.toLower().split(u' ');
  for (qsizetype i = 0; i < mots.size(); ++i)
    if (!mots[i].isEmpty() && (i == 0 || !kLiens.contains(mots[i])))
      mots[i].front() = mots[i].front().toUpper();
  return mots.join(u' ');
}

}  // namespace

QList<VilleCode> VillesProposees(Base &base) {
  QList<VilleCode> villes;
  QSet<QString> plusieurs;
  for (const VilleCode &ligne : TableVille(base).Toutes()) {
    if (PlusieursCodes(ligne)) {
      if (plusieurs.contains(ligne.Ville)) continue;
      plusieurs.insert(ligne.Ville);
    }
    villes.append(ligne);
  }
  std::ranges::stable_sort(villes, OrdreDesNoms(), &VilleCode::Ville);
  return villes;
}

bool PlusieursCodes(const VilleCode &ville) {
  const QStringList cles = ville.Liens.split(u'*');
  return cles.size() > 1 &&
         std::ranges::all_of(cles, [](const QString &cle) { return cle.toLongLong() > 0; });
}

QStringList CodesDe(Base &base, const VilleCode &ville) {
  const TableVille table(base);
  QStringList codes;
  for (const QString &cle : ville.Liens.split(u'*'))
    if (const auto ligne = table.Lire(cle.toLongLong())) codes.append(ligne->CodePostal);
  return codes;
}

QStringList VillesDuCode(Base &base, const QString &appPath, const QString &code) {
  QStringList retenues, livrees;
  Ignorer([&] {
    if (!base.Ouverte()) return;
    const Attente attente(base, 0ms);  // somebody is typing
    for (const VilleCode &ligne : TableVille(base).Toutes())
      if (ligne.CodePostal == code && !ligne.Ville.isEmpty()) retenues.append(ligne.Ville);
  });
  Ignorer([&] {
    for (const CodePostal &ligne : ChercherCodes(appPath, code))
      if (ligne.Code() == code) livrees.append(ligne.Ville());
  });
  return ReunirVilles(retenues, livrees);
}

QStringList ReunirVilles(const QStringList &retenues, const QStringList &livrees) {
  QStringList villes;
  QSet<QString> connues;
  for (const QString &ville : retenues + livrees) {
    const QString connue = Connue(ville);
    if (connues.contains(connue)) continue;
    connues.insert(connue);
    villes.append(ville);
  }
  return villes;
}

QString FinDeVille(const QString &tape, const QStringList &villes) {
  if (tape.isEmpty()) return {};
  const auto ville = std::ranges::find_if(villes, [debut = SansAccent(tape)](const QString &v) {
    return SansAccent(v).startsWith(debut);
  });
  if (ville == villes.end()) return {};
  const bool petites = tape != tape.toUpper() && *ville == ville->toUpper();
  return (petites ? EnPetites(*ville) : *ville).mid(tape.size());
}
