// The companion that repairs: the system's services, the base of this user, one repair.

#include "app/Brikel.h"
#include "app/Lancement.h"
#include "maintenance/ConversationReparation.h"
#include "platform/Erreurs.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/VoisinageSysteme.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Reglages.h"
#include "ui/EchelleProgramme.h"

#include <QProcess>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

int Statut(IssueReparation issue) {
  if (issue == IssueReparation::RienFait) return kRienFait;
  return issue == IssueReparation::ToutGarde ? kToutGarde : kLignesPerdues;
}

/// Of a start that was not Velmira's, which has asked already and has closed.
bool Accepte(Boites &boites, const QString &appPath) {
  if (VoisinageSysteme().Demander(NomDeVoisin(u"fiche"_s, appPath), {})) {
    boites.Information(
        u"Velmira est ouvert. Choisissez-y « Réparer et compacter la base de données » du menu "
        "« Options », ou fermez-le, puis relancez Brikel."_s);
    return false;
  }
  return boites.Question(
             Boites::Titre(),
             u"Réparer et compacter la base de données ?\n\nVelmira doit être fermé sur "
             "tous les postes qui travaillent sur cette base."_s,
             Boites::Reponse::Non) == Boites::Reponse::Oui;
}

int Reparer(bool demander) {
  BoitesSysteme boites;
  QString appPath, base;
  Reglages reglages;
  if (!Signaler(boites, [&] {
        appPath = AppPathDuPoste();
        base = DossiersDeVelmira(appPath).Base();
        LireReglages(appPath, reglages);
      }))
    return kRienFait;
  if (demander && !Accepte(boites, appPath)) return kRienFait;
  CoquilleSysteme coquille;
  const EchelleProgramme echelle(reglages.rtcolor.TailleFenetre);
  const auto issue =
      ReparerEnFenetre(boites, coquille, base, HorlogeSysteme().Maintenant(), kAttenteBrikel);
  // Whether the base was repaired or not: the user came from there.
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
  const Allure allure(u"Brikel"_s, u"brikel"_s);
  BoitesSysteme boites;
  application.SignalerPar(&boites);
  QTimer::singleShot(0, &application, [&demande] { Application::exit(Reparer(demande.demander)); });
  return Application::exec();
}
