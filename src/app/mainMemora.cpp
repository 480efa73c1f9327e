// The companion of the sticky notes.

#include "app/Lancement.h"
#include "app/Memora.h"
#include "platform/Erreurs.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/VoisinageSysteme.h"

#include <QTimer>

#include <optional>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[]) {
  const QStringList tous = MotsDeLaCommande(argc, argv);
  if (const auto reponse = RepondreAuxOptions(tous, Executable::Memora)) return Repondre(*reponse);
  const bool ecran = PreparerEcran();
  // Wayland lets no program place its windows, nor know where they are.
  if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && qEnvironmentVariableIsSet("DISPLAY") &&
      !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    qputenv("QT_QPA_PLATFORM", "xcb;wayland");
  Application application(argc, argv);
  const QStringList mots = Application::arguments().sliced(1);
  if (const auto refus = RefuserDeDemarrer(mots, ecran, Executable::Memora))
    return Repondre(*refus);
  const Allure allure(u"Memora"_s, u"memora"_s);
  BoitesSysteme boites;
  VoisinageSysteme voisinage;
  application.SignalerPar(&boites);

  QString appPath;
  std::optional<Memora> memora;
  const bool automatique = mots.contains(u"auto"_s);
  const bool pret = Signaler(boites, [&] {
    appPath = AppPathDuPoste();
    const QString nom = NomDeVoisin(u"memora"_s, appPath);
    const bool seul = voisinage.Prendre(nom, &application, [&](const QStringList &demande) {
      if (memora) memora->Commencer(!demande.contains(u"auto"_s));
    });
    if (seul)
      memora.emplace(boites, appPath);
    else
      voisinage.Demander(nom, mots);
  });
  if (!memora) return pret ? EXIT_SUCCESS : EXIT_FAILURE;
  QObject::connect(&*memora, &Memora::Termine, &application,
                   [] { Application::exit(EXIT_SUCCESS); });
  QTimer::singleShot(0, &*memora, [&] { memora->Commencer(!automatique); });
  return Application::exec();
}
