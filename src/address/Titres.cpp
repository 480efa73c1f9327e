#include "address/Titres.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"

using namespace Qt::StringLiterals;

namespace {

QString Fichier(const QString &appPath) {
  return appPath + u"/Civilite.txt"_s;
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
  QString reste = ligne;
  for (qsizetype i = 1; i <= ligne.size(); ++i)
    if (titres.contains(ligne.left(i))) {
      reste = ligne.mid(i).trimmed();
      break;
    }
  if (titre.isEmpty()) return reste;
  return reste.isEmpty() ? titre : titre + u' ' + reste;
}
