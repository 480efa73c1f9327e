// The companion of the alerts: shows what is due, and what was missed.

#include "app/Lancement.h"
#include "app/Vigilo.h"
#include "platform/Erreurs.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/NotificationsBus.h"
#include "platform/linux/Utilisateur.h"
#include "platform/linux/VoisinageSysteme.h"

#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// Without a window, and nothing is noted as told.
int Lister() {
  try {
    const QString appPath = AppPathDuPoste(), utilisateur = NomUtilisateur();
    const EvenementsLus lus = LireEvenements(appPath, utilisateur);
    if (lus.base.isEmpty()) return Repondre({u"Vigilo : aucune base de données.\n"_s, 1});
    const Vigilance vigilance =
        Surveiller(lus.personnes, MemoireAlertes(appPath, lus.base, utilisateur),
                   HorlogeSysteme().Maintenant().date());
    QString texte;
    for (const QString &ligne : LignesDeListe(vigilance)) texte += ligne + u'\n';
    return Repondre({texte});
  } catch (const Erreur &erreur) {
    return Repondre({u"Vigilo : "_s + erreur.Texte() + u'\n', 1});
  }
}

}  // namespace

int main(int argc, char *argv[]) {
  const QStringList tous = MotsDeLaCommande(argc, argv);
  if (const auto reponse = RepondreAuxOptions(tous, Executable::Vigilo)) return Repondre(*reponse);
  const bool liste = tous == QStringList{u"--liste"_s};
  const bool ecran = PreparerEcran() || liste;
  if (liste) qputenv("QT_QPA_PLATFORM", "offscreen");
  Application application(argc, argv);
  const QStringList mots = Application::arguments().sliced(1);
  if (const auto refus = RefuserDeDemarrer(mots, ecran, Executable::Vigilo))
    return Repondre(*refus);
  if (liste) return Lister();
  const Allure allure(u"Vigilo"_s, u"vigilo"_s);

  HorlogeSysteme horloge;
  BoitesSysteme boites;
  CoquilleSysteme coquille;
  NotificationsBus notifications;
  VoisinageSysteme voisinage;
  application.SignalerPar(&boites);

  QString appPath;
  if (!Signaler(boites, [&] { appPath = AppPathDuPoste(); })) return EXIT_FAILURE;
  Vigilo vigilo({boites, horloge, coquille, notifications, NomUtilisateur(), LangueDuSysteme()},
                appPath, Vigilo::DepartDe(mots));
  const QString nom = NomDeVoisin(u"vigilo"_s, appPath);
  const bool seul = voisinage.Prendre(nom, &vigilo, [&](const QStringList &demande) {
    vigilo.Reprendre(Vigilo::DepartDe(demande));
  });
  if (!seul) {
    // The other one tells what is to be told; at log-on nobody has asked for its window.
    if (Vigilo::DepartDe(mots) != Vigilo::Depart::Session) voisinage.Demander(nom, mots);
    return EXIT_SUCCESS;
  }
  QObject::connect(&vigilo, &Vigilo::Termine, &application,
                   [](int statut) { Application::exit(statut); });
  QTimer::singleShot(0, &vigilo, [&] { vigilo.Commencer(); });
  return Application::exec();
}
