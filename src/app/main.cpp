// The program: the system's services, the application folder, one run.

#include "app/Allure.h"
#include "app/Application.h"
#include "app/DossierDuProgramme.h"
#include "app/LigneDeCommande.h"
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

#include <QLoggingCategory>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

/// The language of the system; French where it has none set.
QLocale LangueDuSysteme() {
  const QLocale systeme = QLocale::system();
  return systeme.language() == QLocale::C ? QLocale(QLocale::French, QLocale::France) : systeme;
}

QStringList Mots(int argc, char *argv[]) {
  QStringList mots;
  for (int i = 1; i < argc; ++i) mots.append(QString::fromLocal8Bit(argv[i]));
  return mots;
}

int Terminer(const Reponse &reponse) {
  std::fputs(reponse.texte.toUtf8().constData(), reponse.statut == 0 ? stdout : stderr);
  return reponse.statut;
}

}  // namespace

int main(int argc, char *argv[]) {
  if (const auto reponse = RepondreAuxOptions(Mots(argc, argv))) return Terminer(*reponse);
  const bool ecran = NommeUnEcran(QProcess::systemEnvironment());
  if (!ecran) {  // the toolkit would break off in English
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QLoggingCategory::setFilterRules(u"default.warning=false"_s);
  }
  Application application(argc, argv);
  if (const auto refus = RefuserDeDemarrer(Application::arguments().sliced(1), ecran))
    return Terminer(*refus);
  Application::setApplicationName(u"Velmira"_s);
  Application::setApplicationVersion(QStringLiteral(VELMIRA_VERSION));
  Application::setDesktopFileName(u"velmira"_s);
  Application::setQuitOnLastWindowClosed(false);
  const Allure allure;

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
  const bool trouve = Signaler(boites, [&] { appPath = DossierDuProgramme(); });
  if (!trouve) return EXIT_FAILURE;

  Programme programme(plateforme, appPath);
  QObject::connect(&programme, &Programme::Termine, &application,
                   [] { Application::exit(EXIT_SUCCESS); });
  QTimer::singleShot(0, &programme, [&] {
    if (!programme.Demarrer()) Application::exit(EXIT_FAILURE);
  });
  return Application::exec();
}
