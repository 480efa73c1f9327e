#include "address/Titres.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString Fichier(const QString &appPath) {
  return appPath + u"/Civilite.txt"_s;
}

/// The list of titles may have blanks behind them.
QString SansFin(QString titre) {
  while (!titre.isEmpty() && titre.back().isSpace()) titre.chop(1);
  return titre;
}

/// Whether a title stands at the front of a line, and is not the beginning of another word.
bool CommencePar(const QString &ligne, const QString &titre) {
  return ligne.startsWith(titre) && (ligne.size() == titre.size() || ligne[titre.size()].isSpace());
}

}  // namespace

QStringList LireTitres(const QString &appPath) {
  QStringList titres;
  const auto octets = LireFichier(Fichier(appPath));
  if (!octets)
    throw ErreurFichier(u"Le fichier « %1 » ne peut pas être lu."_s.arg(Fichier(appPath)));
  for (QString ligne : DepuisPageDeCode(*octets).split(u'\n')) {
    if (ligne.endsWith(u'\r')) ligne.chop(1);
    if (!ligne.isEmpty()) titres.append(ligne);
  }
  return titres;
}

void EcrireTitres(const QString &appPath, const QStringList &titres) {
  QString texte;
  for (const QString &titre : titres)
    if (!titre.isEmpty()) texte += titre + u"\r\n"_s;
  RemplacerFichier(Fichier(appPath), VersPageDeCode(texte));
}

QString RemplacerTitre(const QString &ligne, const QStringList &titres, const QString &titre) {
  qsizetype pris = 0;
  for (const QString &ancien : titres)
    if (const QString nu = SansFin(ancien); CommencePar(ligne, nu))
      pris = std::max(pris, nu.size());
  if (pris == 0 && titre.isEmpty()) return ligne;
  const QString reste = ligne.mid(pris).trimmed();
  const QString nouveau = SansFin(titre);
  return nouveau.isEmpty() || reste.isEmpty() ? nouveau + reste : nouveau + u' ' + reste;
}
