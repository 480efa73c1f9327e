// The program: the system's services, the application folder, one run.

#include "app/Lancement.h"
#include "app/Programme.h"
#include "platform/Erreurs.h"
#include "platform/linux/PlateformeSysteme.h"
#include "platform/linux/VoisinageSysteme.h"

#include <QTimer>

#include <chrono>
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

  PlateformeSysteme systeme(LangueDuSysteme());
  Plateforme &plateforme = systeme.LaPlateforme();
  application.SignalerPar(&plateforme.boites);

  QString appPath;
  if (!Signaler(plateforme.boites, [&] { appPath = AppPathDuPoste(); })) return EXIT_FAILURE;

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
  return FinirAvec(plateforme.abandons, Application::exec());
}
