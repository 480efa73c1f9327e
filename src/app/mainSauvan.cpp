// The companion that takes persons over: the system's services, the files of one command.

#include "app/Lancement.h"
#include "app/Sauvan.h"
#include "platform/Erreurs.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/Utilisateur.h"

#include <QCoreApplication>

int main(int argc, char *argv[]) {
  const DemandeSauvan demande = LireDemandeSauvan(MotsDeLaCommande(argc, argv));
  if (demande.reponse) return Repondre(*demande.reponse);
  const QCoreApplication application(argc, argv);
  try {
    return Repondre(ReprendreSansFenetre(demande, AppPathDuPoste(), NomUtilisateur(),
                                         HorlogeSysteme().Maintenant()));
  } catch (const Erreur &erreur) {
    return Repondre({erreur.Texte() + u'\n', kRienRepris});
  }
}
