// The companion that takes persons over: the system's services, the files of one command, or the
// window in which they are chosen.

#include "app/Lancement.h"
#include "app/Sauvan.h"
#include "exchange/FrmReprise.h"
#include "help/ToucheAide.h"
#include "platform/Erreurs.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/PlateformeSysteme.h"
#include "platform/linux/Utilisateur.h"
#include "platform/linux/VoisinageSysteme.h"
#include "session/Session.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Reglages.h"
#include "ui/EchelleProgramme.h"
#include "ui/EntreePresse.h"
#include "ui/Garde.h"
#include "ui/PlacesFenetres.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

/// The base of Velmira, as Velmira would work with it.
void Ouvrir(Session &session) {
  session.dossiers = DossiersDeVelmira(AppPathDuPoste());
  LireReglages(session.dossiers.AppPath, session.reglages);
  session.base.Ouvrir(session.dossiers.Base());
  if (!session.base.Ouverte()) throw ErreurFichier(TexteSansBase());
}

int Montrer(Session &session, const QStringList &fichiers) {
  Boites &boites = session.plateforme.boites;
  const QString &appPath = session.dossiers.AppPath;
  const qint32 taille = session.reglages.rtcolor.TailleFenetre;
  PlacesFenetres places(appPath, taille);
  const EchelleProgramme echelle(taille);
  const EntreePresse entree;
  const ToucheAide aide(boites, session.plateforme.coquille, appPath, nullptr);
  FrmReprise fenetre(session, false, nullptr);
  QObject::connect(&fenetre, &FrmReprise::Repris, &fenetre,
                   Garde(boites, [&](const BilanReprise &bilan) {
                     if (bilan.ancienneBase) NoterRecuperation(appPath, bilan.adressesImportees);
                   }));
  QTimer::singleShot(0, &fenetre, Garde(boites, [&] { fenetre.Ajouter(fichiers); }));
  fenetre.exec();
  places.Ecrire();
  return fenetre.Bilan() ? StatutDe(*fenetre.Bilan()) : kRienRepris;
}

/// Velmira has closed for this program: its user goes back there.
void Retourner(Coquille &coquille, const QString &appPath) {
  if (!VoisinageSysteme().Demander(NomDeVoisin(u"fiche"_s, appPath), {}))
    LancerVelmira(coquille, Application::applicationDirPath(), {});
}

int ReprendreEnFenetre(Plateforme &plateforme, const DemandeSauvan &demande) {
  int statut = kRienRepris;
  Session session{plateforme, {}, {}, {}};
  if (Signaler(plateforme.boites, [&] { Ouvrir(session); }))
    statut = Montrer(session, demande.fichiers);
  session.base.Fermer();
  if (demande.retour)
    Signaler(plateforme.boites, [&] { Retourner(plateforme.coquille, AppPathDuPoste()); });
  return statut;
}

}  // namespace

int main(int argc, char *argv[]) {
  const DemandeSauvan demande = LireDemandeSauvan(MotsDeLaCommande(argc, argv));
  if (demande.reponse) return Repondre(*demande.reponse);
  if (!demande.base.isEmpty()) {
    const QCoreApplication application(argc, argv);
    try {
      return Repondre(ReprendreSansFenetre(demande, AppPathDuPoste(), NomUtilisateur(),
                                           HorlogeSysteme().Maintenant()));
    } catch (const Erreur &erreur) {
      return Repondre({erreur.Texte() + u'\n', kRienRepris});
    }
  }
  if (!NommeUnEcran(QProcess::systemEnvironment()))
    return Repondre(
        {u"Sauvan a besoin d'un écran : lancez-le depuis un bureau, ou avec « --vers "
         "».\n"_s,
         kRienRepris});
  Application application(argc, argv);
  const Allure allure(u"Sauvan"_s, u"sauvan"_s);
  PlateformeSysteme systeme(LangueDuSysteme());
  Plateforme &plateforme = systeme.LaPlateforme();
  application.SignalerPar(&plateforme.boites);
  QTimer::singleShot(0, &application,
                     [&] { Application::exit(ReprendreEnFenetre(plateforme, demande)); });
  return FinirAvec(plateforme.abandons, Application::exec());
}
