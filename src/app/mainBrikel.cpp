// The companion that repairs: the system's services, the base of this user, one repair.

#include "app/Brikel.h"
#include "app/Lancement.h"
#include "maintenance/ConversationReparation.h"
#include "platform/Erreurs.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"

#include <QProcess>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

int Statut(IssueReparation issue) {
  if (issue == IssueReparation::RienFait) return kRienFait;
  return issue == IssueReparation::ToutGarde ? kToutGarde : kLignesPerdues;
}

int Reparer() {
  BoitesSysteme boites;
  QString base;
  if (!Signaler(boites, [&] { base = BaseDeVelmira(AppPathDuPoste()); })) return kRienFait;
  const auto issue = ReparerEnFenetre(boites, base, HorlogeSysteme().Maintenant(), kAttenteBrikel);
  // Whether the base was repaired or not: the user came from there.
  CoquilleSysteme coquille;
  LancerVelmira(coquille, Application::applicationDirPath(), {});
  return Statut(issue);
}

}  // namespace

int main(int argc, char *argv[]) {
  const DemandeBrikel demande = LireDemandeBrikel(MotsDeLaCommande(argc, argv));
  if (demande.reponse) return Repondre(*demande.reponse);
  if (!demande.base.isEmpty()) {
    const QCoreApplication application(argc, argv);
    return Repondre(
        ReparerSansFenetre(demande.base, HorlogeSysteme().Maintenant(), kAttenteBrikel));
  }
  if (!NommeUnEcran(QProcess::systemEnvironment()))
    return Repondre(
        {u"Brikel a besoin d'un écran : lancez-le depuis un bureau, ou avec « "
         "--sans-fenetre ».\n"_s,
         kRienFait});
  Application application(argc, argv);
  const Allure allure(u"Brikel"_s, u"velmira"_s);
  BoitesSysteme boites;
  application.SignalerPar(&boites);
  QTimer::singleShot(0, &application, [] { Application::exit(Reparer()); });
  return Application::exec();
}
