#include "platform/linux/CoquilleSysteme.h"

#include "platform/Fichiers.h"
#include "platform/Pannes.h"
#include "platform/linux/EntreeBureau.h"
#include "platform/linux/Programmes.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDesktopServices>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>
#include <QUrl>

#include <cerrno>
#include <chrono>
#include <future>
#include <thread>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString DossierBureau() {
  return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

QString CheminLien(const QString &nom) {
  return DossierBureau() + u'/' + nom + u".desktop"_s;
}

/// Whether a program succeeds, once it has ended. It and what it starts outlive this one, and so
/// does the thread that waits for it.
std::future<bool> Reussite(const QString &programme, const QString &argument) {
  std::promise<bool> promesse;
  auto reussite = promesse.get_future();
  std::thread([programme, argument, promesse = std::move(promesse)]() mutable {
    QProcess processus;
    processus.setStandardInputFile(QProcess::nullDevice());
    processus.setStandardOutputFile(QProcess::nullDevice());
    processus.setStandardErrorFile(QProcess::nullDevice());
    processus.setChildProcessModifier([] { ::setsid(); });
    processus.start(programme, {argument});
    const bool fini = processus.waitForStarted(-1) && processus.waitForFinished(-1);
    promesse.set_value(fini && processus.exitStatus() == QProcess::NormalExit &&
                       processus.exitCode() == 0);
  }).detach();
  return reussite;
}

/// The windows go on painting, and take no input from the user meanwhile. False when it is too
/// long.
bool AttendreReponse(const std::future<bool> &reponse) {
  const auto prete = [&] { return reponse.wait_for(0s) == std::future_status::ready; };
  const QDeadlineTimer limite(2s);
  QEventLoop boucle;
  QTimer reveil;
  QObject::connect(&reveil, &QTimer::timeout, &boucle, [&] {
    if (prete() || limite.hasExpired()) boucle.quit();
  });
  reveil.start(20ms);
  boucle.exec(QEventLoop::ExcludeUserInputEvents);
  return prete();
}

bool PeutNommerFichier(const QString &nom) {
  return !nom.isEmpty() && nom != u"."_s && nom != u".."_s && !nom.contains(u'/') &&
         !nom.contains(QChar(0));
}

}  // namespace

bool CoquilleSysteme::OuvrirSurLeBureau(const QString &document) {
  const QUrl adresse = QDir::isAbsolutePath(document) ? QUrl::fromLocalFile(document)
                                                      : QUrl::fromUserInput(document);
  if (adresse.isLocalFile() && !QFileInfo::exists(adresse.toLocalFile())) return false;
  const QString lanceur = QStandardPaths::findExecutable(u"xdg-open"_s);
  if (lanceur.isEmpty()) return QDesktopServices::openUrl(adresse);
  auto reussite = Reussite(lanceur, adresse.toString(QUrl::FullyEncoded));
  return !AttendreReponse(reussite) || reussite.get();
}

bool CoquilleSysteme::Lancer(const QString &programme, const QStringList &arguments) {
  const QString trouve = TrouverProgramme(programme);
  QProcess processus;
  processus.setProgram(trouve);
  processus.setArguments(arguments);
  processus.setWorkingDirectory(QFileInfo(trouve).path());
  return processus.startDetached();
}

bool CoquilleSysteme::PeutLancer(const QString &programme) const {
  return EstProgramme(TrouverProgramme(programme));
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
  RemplacerFichier(CheminLien(nom), EntreeBureau(nom, TrouverProgramme(programme)));
  // Desktops start only entries that are marked as programs.
  QFile fichier(CheminLien(nom));
  errno = 0;
  if (!fichier.setPermissions(fichier.permissions() | QFile::ExeOwner | QFile::ExeUser))
    throw EchecSysteme(
        u"Le raccourci « %1 » est écrit, mais n'a pas pu être rendu exécutable"_s.arg(
            QDir::toNativeSeparators(fichier.fileName())),
        {}, errno);
}
