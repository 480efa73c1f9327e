// The program: the system's services, the application folder, one run.

#include "app/Application.h"
#include "app/Programme.h"
#include "platform/Erreurs.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/ClasseurSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/ImprimanteSysteme.h"
#include "platform/linux/ListeDemarrageSysteme.h"
#include "platform/linux/PolicesSysteme.h"
#include "platform/linux/PortSerieSysteme.h"
#include "platform/linux/Utilisateur.h"
#include "storage/DossierApplication.h"
#include "ui/Icones.h"

#include <QLibraryInfo>
#include <QStandardPaths>
#include <QTimer>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

/// The language of the system; French where it has none set.
QLocale LangueDuSysteme() {
  const QLocale systeme = QLocale::system();
  return systeme.language() == QLocale::C ? QLocale(QLocale::French, QLocale::France) : systeme;
}

}  // namespace

int main(int argc, char *argv[]) {
  Application application(argc, argv);
  Application::setApplicationName(u"Velmira"_s);
  Application::setApplicationVersion(QStringLiteral(VELMIRA_VERSION));
  Application::setDesktopFileName(u"velmira"_s);
  Application::setQuitOnLastWindowClosed(false);
  PreparerIcones();

  QTranslator traduction;  // the toolkit's own texts: Oui, Non, Annuler
  if (traduction.load(u"qtbase_fr"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    Application::installTranslator(&traduction);

  HorlogeSysteme horloge;
  BoitesSysteme boites;
  CoquilleSysteme coquille;
  ImprimanteSysteme imprimante(horloge);
  PolicesSysteme polices;
  ListeDemarrageSysteme demarrage;
  PortSerieSysteme port;
  ClasseurSysteme classeur;
  const QString cache =
      QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) + u"/Velmira"_s;
  Plateforme plateforme{horloge, boites,   coquille,         imprimante,        polices, demarrage,
                        port,    classeur, NomUtilisateur(), LangueDuSysteme(), cache};
  application.SignalerPar(&boites);

  QString appPath;
  const bool trouve = Signaler(boites, [&] {
    appPath = TrouverAppPath(
        Application::applicationDirPath(), QStringLiteral(VELMIRA_INSTALLED_DATA),
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/Velmira"_s);
  });
  if (!trouve) return EXIT_FAILURE;

  Programme programme(plateforme, appPath);
  QObject::connect(&programme, &Programme::Termine, &application,
                   [] { Application::exit(EXIT_SUCCESS); });
  QTimer::singleShot(0, &programme, [&] {
    if (!programme.Demarrer()) Application::exit(EXIT_FAILURE);
  });
  return Application::exec();
}
