#include "storage/DossierApplication.h"

#include "platform/Enregistrement.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "storage/Dossiers.h"
#include "storage/Schema.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

using namespace Qt::StringLiterals;

namespace {

const QString kInstallation = u"Installation.cfg"_s;   // schema version of the last base laid
const QString kEditionGuide = u"guide/edition.txt"_s;  // differs wherever the guide does

void Copier(const QString &source, const QString &cible) {
  RemplacerFichier(cible, LireFichierPresent(source));
}

/// The guide is the program's own: another edition replaces it. The mark comes last, so that a copy
/// that was cut short is made again.
void CopierGuide(const QDir &installe, const QDir &utilisateur) {
  const QString source = installe.filePath(kEditionGuide);
  const auto edition = LireFichier(source);
  if (!edition || edition == LireFichier(utilisateur.filePath(kEditionGuide))) return;
  QDirIterator fichiers(installe.filePath(u"guide"_s), QDir::Files, QDirIterator::Subdirectories);
  while (fichiers.hasNext()) {
    const QString fichier = fichiers.next();
    if (fichier == source) continue;
    const QString cible = utilisateur.filePath(installe.relativeFilePath(fichier));
    CreerDossier(QFileInfo(cible).path());
    Copier(fichier, cible);
  }
  Copier(source, utilisateur.filePath(kEditionGuide));
}

}  // namespace

QString TrouverAppPath(const QString &dossierExecutable, const QString &dossierInstalle,
                       const QString &dossierUtilisateur) {
  if (QFile::exists(dossierExecutable + u"/Velmira.portable"_s)) return dossierExecutable;

  const QDir installe(dossierInstalle), utilisateur(dossierUtilisateur);
  const QString baseVide = FichierBaseLivree(installe.path());
  CreerDossier(utilisateur.path());
  const auto marque = LireFichier(utilisateur.filePath(kInstallation));
  qint32 posee = -1;
  if (marque)
    LecteurEnregistrement(*marque).Lire(posee);
  else
    for (const QString &nom : installe.entryList(QDir::Files))
      if (installe.filePath(nom) != baseVide && !utilisateur.exists(nom))
        Copier(installe.filePath(nom), utilisateur.filePath(nom));

  const qint32 version = VersionDuFichier(baseVide);
  if (version > posee) Copier(baseVide, FichierBaseLivree(utilisateur.path()));
  if (!marque || version > posee) {
    RedacteurEnregistrement redacteur;
    redacteur.Ecrire(std::max(version, posee));
    RemplacerFichier(utilisateur.filePath(kInstallation), redacteur.Octets());
  }
  Ignorer([&] { CopierGuide(installe, utilisateur); });  // the program does without
  return utilisateur.path();
}

void EntretenirDossier(const Dossiers &dossiers) {
  Ignorer([&] { CreerDossier(dossiers.Photos()); });
  for (const QString &reste : {u"Anniversare.ini"_s, u"Dorvel.exe"_s})
    Ignorer([&] { EffacerFichier(dossiers.AppPath + u'/' + reste); });
}
