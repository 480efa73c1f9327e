#include "maintenance/CommandesBase.h"

#include "maintenance/FrmLiaison.h"
#include "platform/Erreurs.h"
#include "session/SauvegardePrealable.h"
#include "storage/EmplacementDonnees.h"
#include "storage/Historique.h"
#include "storage/Tables.h"
#include "storage/Telephone.h"
#include "storage/TransfertBase.h"
#include "ui/Brancheur.h"
#include "ui/Guillemet.h"
#include "ui/Sablier.h"
#include "ui/Travail.h"

#include <QAction>
#include <QDir>
#include <QScopeGuard>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

QString Important(const QString &texte) {
  return u"IMPORTANT !\n\n"_s + QString(60, u'_') + u"\n\n"_s + texte;
}

ErreurFichier Introuvable(const QString &programme) {
  return ErreurFichier(
      u"Le programme « %1 » ne peut pas être lancé.\nVos données sont intactes. Réinstallez "
      "Velmira, puis recommencez."_s.arg(QDir::toNativeSeparators(programme)));
}

QString Brikel(const Session &session) {
  return session.dossiers.AppPath + u"/Brikel"_s;
}

}  // namespace

CommandesBase::CommandesBase(Session &session, const Actions &actions, Programme programme,
                             QWidget *fenetre)
    : QObject(fenetre), session_(session), programme_(std::move(programme)), fenetre_(fenetre) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(actions.mnuLiaison, &CommandesBase::ChangerLiaison);
  brancher(actions.mnuChemin, &CommandesBase::ChangerChemin);
  brancher(actions.mnuTransfert, &CommandesBase::Transferer);
  brancher(actions.mnuRepComp, &CommandesBase::Reparer);
  brancher(actions.mnuRecup, &CommandesBase::Recuperer);
}

void CommandesBase::ChangerLiaison() {
  Boites &boites = session_.plateforme.boites;
  boites.Information(
      u"Le caractère de liaison formatant les numéros téléphoniques est actuellement : \""_s +
      session_.reglages.SeparateurTel +
      u"\"\nEn cas de fonctionnement réseau, son changement affectera tous les utilisateurs."_s);
  const QString ancien = session_.reglages.SeparateurTel;
  FrmLiaison dialogue(boites, ancien, fenetre_);
  if (dialogue.exec() != QDialog::Accepted) return;
  const QString separateur = dialogue.Separateur();
  Acte acte(session_.base, u"changement de séparateur des numéros"_s);
  acte.Suivre(CheminLiaison(session_.dossiers.AppPath), u"le séparateur des numéros"_s, false);
  EnregistrerLiaison(separateur);

  bool faite = false;
  try {
    boites.Information(u"Votre base de données doit être mise à jour."_s);
    programme_.afficherRacine();
    faite = Reformater(ancien, separateur);
  } catch (...) {
    RendreLiaison(ancien);
    acte.Oublier();
    throw;
  }
  if (!faite) {
    RendreLiaison(ancien);
    acte.Oublier();
  }
  boites.Information(faite ? u"La base a été mise à jour avec succès."_s
                           : u"Mise à jour arrêtée : rien n'a été changé."_s);
}

void CommandesBase::EnregistrerLiaison(const QString &separateur) {
  Reglages reglages = session_.reglages;
  reglages.SeparateurTel = separateur;
  EcrireLiaison(session_.dossiers.AppPath, reglages);
  session_.reglages.SeparateurTel = separateur;
}

void CommandesBase::RendreLiaison(const QString &ancien) {
  session_.reglages.SeparateurTel = ancien;
  Signaler(session_.plateforme.boites, [&] { EnregistrerLiaison(ancien); });
}

bool CommandesBase::Reformater(const QString &ancien, const QString &separateur) {
  const auto regle = [&](const QString &numero) {
    return FormatTelephone(numero, separateur, ancien);
  };
  return Travail(fenetre_, u"Mise à jour des numéros"_s)
      .Executer(session_.base, [&](Base &base, const Avance &avance) {
        return TableAdresse(base).ReformaterTelephones(regle, avance);
      });
}

void CommandesBase::EnregistrerChemin(const QString &chemin) {
  EcrireCheminBase(session_.dossiers.AppPath, chemin);
  session_.dossiers.CheminBaseConfig = chemin;
}

void CommandesBase::ChangerChemin() {
  Boites &boites = session_.plateforme.boites;
  const Dossiers &dossiers = session_.dossiers;
  if (!LireCheminBase(dossiers.AppPath)) EnregistrerChemin(dossiers.CheminBase);

  const QString actuel = dossiers.CheminBaseConfig;
  boites.Information(u"Le chemin actuel de la base de données, choisi pour travailler, est \n\n"_s +
                     QDir::toNativeSeparators(actuel));
  boites.Information(
      u"Mais vous pouvez aussi utiliser une base de données située sur le serveur en cas "
      "d'utilisation réseau.\n\n"
      "Sélectionnez le répertoire (...\\...\\DataVelmira) sur votre disque ou sur le serveur pour "
      "faire votre choix."_s);
  bool valide = true;  // a folder that cannot be looked at is told, and another can be chosen
  Signaler(boites, [&] { valide = actuel.isEmpty() || EstDossierDeDonnees(actuel); });
  if (!valide)
    boites.Information(u"Le répertoire enregistré \""_s + QDir::toNativeSeparators(actuel) +
                       u"\"est invalide. \nIl faut le définir à nouveau."_s);
  boites.Information(
      u"Si vous désirez choisir un répertoire sur le serveur (utilisation réseau), et qu'il "
      "n'existe pas, il vous faudra, en premier lieu, le créer.\n\n"
      "Cliquez alors sur \"Annuler\" dans ce qui va suivre."_s);
  while (!ChoisirChemin()) {
  }
}

bool CommandesBase::ChoisirChemin() {
  Boites &boites = session_.plateforme.boites;
  const QString dossier = boites.Dossier(
      u"Sélectionnez le répertoire (...\\...\\DataVelmira), sur votre disque ou sur le serveur."_s);
  if (dossier.isEmpty()) return CreerDossierBase() || Renoncer();
  if (RefuserInenregistrable(boites, QDir::toNativeSeparators(dossier))) return false;
  if (!EstDossierDeDonnees(dossier)) {
    boites.Information(
        u"Le répertoire choisi n'est pas DataVelmira.\n\n"
        "Dans l'attente de refaire votre choix, vous allez travailler avec les données "
        "enregistrées sur votre disque."_s);
    EnregistrerChemin(session_.dossiers.CheminData);
    return true;
  }
  if (EstVide(dossier) &&
      Accepte(u"Vous n'avez pas encore transféré la base de données située dans le répertoire "
              "...\\NOM_UTILISATEUR\\DataTrevona\\DataVelmira de votre disque.\n"
              "Dans cette attente, vous allez travailler avec les données enregistrées sur votre "
              "disque.\n\n"
              "Voulez-vous changer de répertoire ?"_s))
    return false;
  EnregistrerChemin(dossier);
  boites.Information(
      u"Il vous faudra fermer et relancer le programme pour prendre en compte le nouveau "
      "chemin."_s);
  boites.Information(Important(
      u"En cas de changement de chemin, pensez à transfèrer la base de données dans laquelle vous "
      "avez travaillé, dans le répertoire du nouveau chemin (notamment lors de la création d'un "
      "nouveau répertoire)."_s));
  return true;
}

bool CommandesBase::CreerDossierBase() {
  if (!Accepte(u"Si le répertoire (...\\...\\DataVelmira) n'existe pas sur le serveur,\n"
               "Voulez-vous le créer maintenant ?"_s))
    return false;
  const QString lieu = session_.plateforme.boites.Dossier(
      u"Sélectionnez le répertoire du serveur où vous voulez créer le répertoire "
      "(...\\...\\DataVelmira)."_s);
  if (lieu.isEmpty()) return false;
  EnregistrerChemin(CreerDossierDeDonnees(lieu));
  session_.plateforme.boites.Information(Important(
      u"Vous devrez tranfèrer le contenu du répertoire NOM_UTILISATEUR\\DataTrevona\\DataVelmira "
      "de votre disque, dans ce répertoire nouvellement créé, puis relancer le programme pour "
      "utiliser ce support.\n\n"
      "Vous pouvez le faire manuellement ou à l'aide de la commande Options \\ Transfert des "
      "données.\n\n"
      "Dans cette attente, vous allez travailler avec les données enregistrées sur votre disque."_s));
  return true;
}

bool CommandesBase::Renoncer() {
  if (Accepte(u"Vous devez faire le choix du répertoire, ou bien vous allez travailler avec les "
              "données enregistrées sur votre disque.\n\n"
              "Voulez-vous refaire le choix du répertoire ?"_s))
    return false;
  session_.plateforme.boites.Information(
      u"Vous allez travailler avec les données enregistrées sur votre disque."_s);
  EnregistrerChemin(session_.dossiers.CheminData);
  return true;
}

bool CommandesBase::Accepte(const QString &question, Boites::Reponse defaut) {
  return session_.plateforme.boites.Question(Boites::Titre(), question, defaut) ==
         Boites::Reponse::Oui;
}

QString CommandesBase::DossierATransferer(const QString &invite) {
  Boites &boites = session_.plateforme.boites;
  const QString dossier = boites.Dossier(invite);
  if (dossier.isEmpty())
    boites.Critique(u"Procédure annulée !"_s);
  else if (!EstCheminDeDonnees(dossier))
    boites.Critique(u"Vous avez choisi un mauvais répertoire ; procédure annulée !"_s);
  else
    return dossier;
  return {};
}

std::unique_ptr<SourceJet> CommandesBase::LireJet(const QString &base) {
  auto jet = Travail(fenetre_, u"Lecture de l'ancienne base"_s).Executer([&base](const Avance &) {
    return std::make_unique<SourceJet>(base);
  });
  if (!jet->Entiere() &&
      !Accepte(u"L'ancienne base de données « %1 » est endommagée. Voici ce qui a pu en être lu :"
               "\n\n%2\n\nVoulez-vous transférer cela ?"_s.arg(QDir::toNativeSeparators(base),
                                                               jet->Constat()),
               Boites::Reponse::Non))
    jet.reset();
  return jet;
}

bool CommandesBase::Copier(const QString &source, const QString &destination) {
  Boites &boites = session_.plateforme.boites;
  try {
    const QString base = FichierBase(source);
    const auto jet = EstJet(base) ? LireJet(base) : nullptr;
    if (jet || !EstJet(base)) {
      Remplacer(base, jet.get(), FichierBase(destination));
      return true;
    }
    boites.Critique(u"Procédure annulée !"_s);
  } catch (const Erreur &erreur) {
    boites.Critique(
        u"Les données n'ont pas été transférées.\nLe répertoire « %1 » est resté tel qu'il "
        "était.\n\n%2"_s.arg(QDir::toNativeSeparators(destination), erreur.Texte()));
  }
  return false;
}

void CommandesBase::Remplacer(const QString &base, SourceJet *jet, const QString &destination) {
  const Sablier sablier;
  session_.base.Fermer();
  const auto rouvrir = qScopeGuard([this] {
    Signaler(session_.plateforme.boites,
             [this] { session_.base.Ouvrir(session_.dossiers.Base()); });
  });
  if (jet == nullptr) return TransfererBase(base, destination);
  TransfererBaseJet(*jet, destination,
                    LireReglesCopie(session_.dossiers.AppPath, session_.reglages.SeparateurTel));
}

void CommandesBase::Transferer() {
  Boites &boites = session_.plateforme.boites;
  if (!Accepte(u"ATTENTION !\n\n"
               "Vous avez bien conscience que les données transférées vont écraser\n"
               "(c'est à dire remplacer) celles du répertoire de destination.\n\n"
               "Continuer ?"_s,
               Boites::Reponse::Non))
    return;
  boites.Information(
      u"Les répertoires \"Source\" et \"Destination\" sont toujours, sur les supports choisis, "
      "\"\\...\\...\\DataVelmira\"."_s);
  boites.Information(u"Indiquez le répertoire source où se trouvent les données à tranfèrer."_s);
  const QString source = DossierATransferer(
      u"Sélectionnez le répertoire source où se trouvent les données à copier."_s);
  if (source.isEmpty()) return;
  if (!ContientBase(source)) {
    boites.Critique(
        u"La base de données n'est pas présente dans ce répertoire ; procédure annulée !"_s);
    return;
  }
  boites.Information(
      u"Puis indiquez le répertoire de destination où seront tranfèrées les données."_s);
  const QString destination = DossierATransferer(
      u"Désignez le répertoire de destination dans lequel seront transférées les données."_s);
  if (destination.isEmpty()) return;
  if (!Accepte(u"Lancer le transfert ?"_s, Boites::Reponse::Non)) return;
  if (!programme_.enregistrer() ||
      !SauverAvant(session_, fenetre_, MotifSauvegarde::Transfert, FichierBase(destination)) ||
      !Copier(source, destination))
    return;
  boites.Information(
      u"Les données ont été transférées avec succès.\n"
      "Le programme doit être fermé et relancé."_s);
  session_.plateforme.coquille.RelancerProgramme();
  programme_.terminer();
}

void CommandesBase::Reparer() {
  if (!Accepte(u"Réparer et compacter la base de données ?"_s)) return;
  ExigerReparation(session_);  // before the window has gone
  programme_.fermerPuis([&session = session_] { LancerReparation(session); });
}

void CommandesBase::ExigerReparation(const Session &session) {
  if (const QString brikel = Brikel(session); !session.plateforme.coquille.PeutLancer(brikel))
    throw Introuvable(brikel);
}

void CommandesBase::LancerReparation(const Session &session) {
  if (const QString brikel = Brikel(session); !session.plateforme.coquille.Lancer(brikel))
    throw Introuvable(brikel);
}

void CommandesBase::Recuperer() {
  if (!session_.reglages.sauvan.RecuperationFaite.EstNul()) {
    session_.plateforme.boites.Information(
        u"Les données de Plomex'Print et Ondalis on déjà été récupèrées."_s);
    return;
  }
  if (!Accepte(u"Un utilitaire (Sauvan.exe)\n"
               "permet de récupèrer les données de Plomex'Print et Ondalis,\n"
               "pour ceux qui les utilisaient.\n\n"
               "Voulez-vous le lancer ?"_s))
    return;
  const QString sauvan = session_.dossiers.AppPath + u"/Sauvan"_s;
  if (!session_.plateforme.coquille.Lancer(sauvan)) throw Introuvable(sauvan);
  programme_.fermerPuis({});
}
