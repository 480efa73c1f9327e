// The companion that repairs: the system's services, the base of this user, one repair.

#include "app/Allure.h"
#include "app/Application.h"
#include "app/Brikel.h"
#include "app/DossierDuProgramme.h"
#include "maintenance/ConversationReparation.h"
#include "platform/Erreurs.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"

#include <QProcess>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QStringList Mots(int argc, char *argv[]) {
  QStringList mots;
  for (int i = 1; i < argc; ++i) mots.append(QString::fromLocal8Bit(argv[i]));
  return mots;
}

int Terminer(const Reponse &reponse) {
  std::fputs(reponse.texte.toLocal8Bit().constData(),
             reponse.statut == kRienFait ? stderr : stdout);
  return reponse.statut;
}

int Statut(IssueReparation issue) {
  if (issue == IssueReparation::RienFait) return kRienFait;
  return issue == IssueReparation::ToutGarde ? kToutGarde : kLignesPerdues;
}

/// Whether the base was repaired or not: the user came from there.
void OuvrirVelmira() {
  CoquilleSysteme coquille;
  const QString dossier = Application::applicationDirPath();
  for (const QString &nom : {u"/velmira"_s, u"/Velmira"_s})  // a portable copy bears the second
    if (coquille.PeutLancer(dossier + nom) && coquille.Lancer(dossier + nom)) return;
}

int Reparer() {
  BoitesSysteme boites;
  QString base;
  if (!Signaler(boites, [&] { base = BaseDeVelmira(DossierDuProgramme()); })) return kRienFait;
  const auto issue = ReparerEnFenetre(boites, base, HorlogeSysteme().Maintenant(), kAttenteBrikel);
  OuvrirVelmira();
  return Statut(issue);
}

}  // namespace

int main(int argc, char *argv[]) {
  const DemandeBrikel demande = LireDemandeBrikel(Mots(argc, argv));
  if (demande.reponse) return Terminer(*demande.reponse);
  if (!demande.base.isEmpty()) {
    const QCoreApplication application(argc, argv);
    return Terminer(
        ReparerSansFenetre(demande.base, HorlogeSysteme().Maintenant(), kAttenteBrikel));
  }
  if (!NommeUnEcran(QProcess::systemEnvironment()))
    return Terminer(
        {u"Brikel a besoin d'un écran : lancez-le depuis un bureau, ou avec « "
         "--sans-fenetre ».\n"_s,
         kRienFait});
  Application application(argc, argv);
  Application::setApplicationName(u"Brikel"_s);
  Application::setApplicationVersion(QStringLiteral(VELMIRA_VERSION));
  Application::setDesktopFileName(u"velmira"_s);
  Application::setQuitOnLastWindowClosed(false);
  const Allure allure;
  BoitesSysteme boites;
  application.SignalerPar(&boites);
  QTimer::singleShot(0, &application, [] { Application::exit(Reparer()); });
  return Application::exec();
}
