#include "address/Titres.h"

#include "address/ChaineAdresse.h"
#include "platform/Enregistrable.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"
#include "storage/Noms.h"

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

QStringList Lignes(const QByteArray &octets) {
  QStringList titres;
  for (QString ligne : DepuisPageDeCode(octets).split(u'\n')) {
    if (ligne.endsWith(u'\r')) ligne.chop(1);
    if (!ligne.isEmpty()) titres.append(ligne);
  }
  return titres;
}

/// The titles to be changed: those of the file, and none where there is no file.
QStringList TitresPresents(const QString &appPath) {
  return Lignes(LireFichier(Fichier(appPath)).value_or(QByteArray()));
}

void Ecrire(const QString &appPath, QStringList titres) {
  TrierTitres(titres);
  QString texte;
  for (const QString &titre : titres) texte += titre + u"\r\n"_s;
  RemplacerFichier(Fichier(appPath), VersPageDeCode(texte));
}

}  // namespace

QStringList LireTitres(const QString &appPath) {
  return Lignes(LireFichierPresent(Fichier(appPath)));
}

QStringList TitresLus(const QString &appPath) {
  QStringList titres;
  Ignorer([&] { titres = LireTitres(appPath); });
  return titres;
}

void TrierTitres(QStringList &titres) {
  std::ranges::stable_sort(titres, OrdreDesNoms());
}

bool EstTitreEnregistrable(const QString &titre) {
  return EstDansLaPage(titre) && SansSeparateurs(titre) == titre;
}

bool EstTitreConnu(const QStringList &titres, const QString &titre) {
  return std::ranges::any_of(
      titres, [nu = titre.simplified()](const QString &connu) { return connu.simplified() == nu; });
}

void AjouterTitre(const QString &appPath, const QString &titre) {
  QStringList titres = TitresPresents(appPath);
  if (!EstTitreConnu(titres, titre)) Ecrire(appPath, titres << titre);
}

void RetirerTitre(const QString &appPath, const QString &titre) {
  QStringList titres = TitresPresents(appPath);
  titres.removeIf([&](const QString &connu) { return EstTitreConnu({connu}, titre); });
  Ecrire(appPath, titres);
}

QString RemplacerTitre(const QString &ligne, const QStringList &titres, const QString &titre) {
  qsizetype pris = 0;
  for (const QString &ancien : titres)
    if (const QString nu = SansFin(ancien); CommencePar(ligne, nu))
      pris = std::max(pris, nu.size());
  if (pris == 0 && titre.isEmpty()) return ligne;
  const QString reste = ligne.mid(pris).trimmed();
  const QString nouveau = SansFin(titre);
  return nouveau.isEmpty() ? reste : nouveau + u' ' + reste;
}
