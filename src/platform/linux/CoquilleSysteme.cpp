#include "platform/linux/CoquilleSysteme.h"

#include "platform/Fichiers.h"
#include "platform/Pannes.h"
#include "platform/linux/EntreeBureau.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

QString DossierBureau() {
  return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

QString CheminLien(const QString &nom) {
  return DossierBureau() + u'/' + nom + u".desktop"_s;
}

bool PeutNommerFichier(const QString &nom) {
  return !nom.isEmpty() && nom != u"."_s && nom != u".."_s && !nom.contains(u'/') &&
         !nom.contains(QChar(0));
}

}  // namespace

void CoquilleSysteme::Ouvrir(const QString &document) {
  QDesktopServices::openUrl(QDir::isAbsolutePath(document) ? QUrl::fromLocalFile(document)
                                                           : QUrl::fromUserInput(document));
}

bool CoquilleSysteme::Lancer(const QString &programme) {
  QProcess processus;
  processus.setProgram(programme);
  processus.setWorkingDirectory(QFileInfo(programme).path());
  return processus.startDetached();
}

bool CoquilleSysteme::PeutLancer(const QString &programme) const {
  const QFileInfo fichier(programme);
  return fichier.isFile() && fichier.isExecutable();
}

void CoquilleSysteme::RelancerProgramme() {
  QProcess::startDetached(QCoreApplication::applicationFilePath(),
                          QCoreApplication::arguments().sliced(1));
}

void CoquilleSysteme::ReglerSon() {
  // A mixer of its own first, then the page of the desktop's settings.
  if (!QProcess::startDetached(u"pavucontrol"_s, {}))
    QProcess::startDetached(u"gnome-control-center"_s, {u"sound"_s});
}

bool CoquilleSysteme::LienExiste(const QString &nom) const {
  return PeutNommerFichier(nom) && QFileInfo::exists(CheminLien(nom));
}

void CoquilleSysteme::CreerLien(const QString &nom, const QString &programme) {
  if (!PeutNommerFichier(nom))
    throw ErreurFichier(u"« %1 » ne peut pas être le nom d'un fichier."_s.arg(nom));
  CreerDossier(DossierBureau());
  RemplacerFichier(CheminLien(nom), EntreeBureau(nom, programme));
  // Desktops start only entries that are marked as programs.
  QFile fichier(CheminLien(nom));
  errno = 0;
  if (!fichier.setPermissions(fichier.permissions() | QFile::ExeOwner | QFile::ExeUser))
    throw EchecSysteme(
        u"Le raccourci « %1 » est écrit, mais n'a pas pu être rendu exécutable"_s.arg(
            QDir::toNativeSeparators(fichier.fileName())),
        {}, errno);
}
