#include "envelope/CommandesReglages.h"

#include "envelope/FrmConfigure.h"
#include "envelope/FrmOptions.h"
#include "envelope/MiseEnPage.h"
#include "platform/Erreurs.h"
#include "storage/Historique.h"
#include "storage/Tables.h"
#include "ui/Brancheur.h"
#include "ui/Sablier.h"

#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

CommandesReglages::CommandesReglages(Session &session, Imprimantes &imprimantes,
                                     const EtatEnveloppe &etat, const Actions &actions,
                                     Fenetre fenetre)
    : QObject(fenetre.fenetre),
      session_(session),
      imprimantes_(imprimantes),
      etat_(etat),
      fenetre_(std::move(fenetre)) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(actions.mnuConfigure, &CommandesReglages::Configurer);
  brancher(actions.mnuOptions, &CommandesReglages::ChoisirOptions);
  brancher(actions.mnuVCP, &CommandesReglages::RelierVilles);
}

void CommandesReglages::Configurer() {
  const ReglagesPlomex avant = session_.reglages.plomex;
  FrmConfigure dialogue(session_.plateforme, imprimantes_, avant,
                        {etat_.LargeurEnv, etat_.HauteurEnv}, fenetre_.fenetre);
  const bool confirme = dialogue.exec() == QDialog::Accepted;
  if (confirme) {
    if (dialogue.Saisie().Imprimante != avant.Imprimante) fenetre_.autreImprimante();
    session_.reglages.plomex = dialogue.Saisie();
    Signaler(session_.plateforme.boites, [&] { GarderPrise(avant, dialogue.ChoixPapier()); });
  }
  fenetre_.accorder();  // a calibration stays, whatever becomes of the dialog
}

void CommandesReglages::GarderPrise(const ReglagesPlomex &avant, PapierEnveloppe papier) {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  if (avant.Imprimante != plomex.Imprimante && ImpressionConfiguree(avant))
    imprimantes_.Garder(avant, imprimantes_.PapierDe(avant.Imprimante));
  imprimantes_.Garder(plomex, papier);
}

void CommandesReglages::ChoisirOptions() {
  // The list of fonts takes its time on a system with many of them.
  auto sablier = std::make_optional<Sablier>();
  FrmOptions dialogue(
      session_.plateforme.boites, session_.plateforme.polices.Familles(),
      {session_.reglages.plomex, session_.reglages.LiaisonCP, session_.reglages.norme},
      fenetre_.fenetre);
  sablier.reset();
  if (dialogue.exec() != QDialog::Accepted) return;
  session_.reglages.plomex = dialogue.Saisie().plomex;
  session_.reglages.LiaisonCP = dialogue.Saisie().liaisonCP;
  const ReglagesNorme norme = std::exchange(session_.reglages.norme, dialogue.Saisie().norme);
  fenetre_.reformater();
  fenetre_.accorder();
  if (norme != session_.reglages.norme)
    Signaler(session_.plateforme.boites,
             [this] { EcrireNorme(session_.dossiers.AppPath, session_.reglages.norme); });
  EcrireLiaison(session_.dossiers.AppPath, session_.reglages);
}

void CommandesReglages::RelierVilles() {
  Boites &boites = session_.plateforme.boites;
  boites.Information(
      u"Vous n'avez pas à faire cette opération si vous n'avez pas réintègré les données de la "
      "version 1.0.19 de Plomex'Print."_s);
  if (boites.Question(
          Boites::Titre(),
          u"Voulez-vous recréer les liens entre villes et codes postaux (liens détruits "
          "suite à une erreur dans la version 1.0.19) ?"_s) != Boites::Reponse::Oui)
    return;
  TableVille villes(session_.base);
  if (villes.Toutes().isEmpty()) {
    boites.Information(u"Aucune ville n'est enregistrée !"_s);
    return;
  }
  {
    const Acte acte(session_.base, u"liens entre villes et codes postaux"_s);
    villes.Relier();
  }
  boites.Information(u"Opération terminée avec succès.\nVous n'aurez pas à la renouveler."_s);
}
