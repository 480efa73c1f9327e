// The program: the system's services, the application folder, one run.

#include "app/Lancement.h"
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
#include "platform/linux/VoisinageSysteme.h"

#include <QStandardPaths>
#include <QTimer>

#include <chrono>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[]) {
  if (const auto reponse = RepondreAuxOptions(MotsDeLaCommande(argc, argv)))
    return Repondre(*reponse);
  const bool ecran = PreparerEcran();
  Application application(argc, argv);
  const QStringList mots = Application::arguments().sliced(1);
  if (const auto refus = RefuserDeDemarrer(mots, ecran)) return Repondre(*refus);
  const Allure allure(u"Velmira"_s, u"velmira"_s);

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
  if (!Signaler(boites, [&] { appPath = AppPathDuPoste(); })) return EXIT_FAILURE;

  VoisinageSysteme voisinage;
  const QString nom = NomDeVoisin(u"fiche"_s, appPath);
  const auto fiche = LireFicheVoulue(mots);
  if (fiche && voisinage.Demander(nom, MotsDe(*fiche))) return EXIT_SUCCESS;

  Programme programme(plateforme, appPath);
  // Another run that has the name goes on taking what is asked for, until it ends.
  QTimer succession;
  const auto prendre = [&] {
    const bool pris = voisinage.Prendre(nom, &programme, [&](const QStringList &demande) {
      if (const auto voulue = LireFicheVoulue(demande)) programme.OuvrirFiche(*voulue);
    });
    if (pris) succession.stop();
  };
  QObject::connect(&succession, &QTimer::timeout, &programme, prendre);
  succession.start(std::chrono::seconds(5));
  prendre();
  if (fiche) programme.OuvrirFiche(*fiche);
  QObject::connect(&programme, &Programme::Termine, &application,
                   [] { Application::exit(EXIT_SUCCESS); });
  QTimer::singleShot(0, &programme, [&] {
    if (!programme.Demarrer()) Application::exit(EXIT_FAILURE);
  });
  const int statut = Application::exec();
  if (plateforme.abandons.EnCours() == 0) return statut;
  // A printing that was given up still hangs in the system: nothing is taken away under it. What
  // the run had to write is written.
  std::fflush(nullptr);
  std::_Exit(statut);
}
