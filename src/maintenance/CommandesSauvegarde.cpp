#include "maintenance/CommandesSauvegarde.h"

#include "maintenance/FrmRestaurer.h"
#include "maintenance/SauvegardeDuJour.h"
#include "session/SauvegardePrealable.h"
#include "storage/Tables.h"
#include "ui/Brancheur.h"
#include "ui/Guillemet.h"

#include <QAction>
#include <QDir>

#include <utility>

using namespace Qt::StringLiterals;

CommandesSauvegarde::CommandesSauvegarde(Session &session, const Actions &actions,
                                         Programme programme, CompteRendu &fait, QWidget *fenetre)
    : QObject(fenetre),
      session_(session),
      actions_(actions),
      programme_(std::move(programme)),
      fait_(fait),
      fenetre_(fenetre),
      duJour_(new SauvegardeDuJour(session, this)) {
  const Brancheur brancher(session_.plateforme.boites, this);
  brancher(actions.mnuRestaurer, &CommandesSauvegarde::Restaurer);
  brancher(actions.mnuSauvegardes, &CommandesSauvegarde::ChoisirDossier);
}

void CommandesSauvegarde::Restaurer() {
  const auto masquer = [this] {
    if (actions_.mnuMasquer->isChecked())
      TableAdresse(session_.base).MasquerProteges(session_.plateforme.utilisateur, true);
  };
  FrmRestaurer(session_, {programme_.afficherRacine, masquer, programme_.relancer, fait_}, fenetre_)
      .exec();
}

void CommandesSauvegarde::ChoisirDossier() {
  Boites &boites = session_.plateforme.boites;
  const LieuxSauvegardes lieux = LesSauvegardes(session_);
  const QString ici = lieux.ailleurs.isEmpty() ? lieux.Voisin() : lieux.Ailleurs();
  const auto choix = boites.QuestionAnnulable(
      Boites::Titre(),
      u"Les sauvegardes de la base de données vont dans\n\n%1\n\n"
      "Voulez-vous les mettre dans un autre répertoire, sur une clé ou un autre disque ?\n"
      "Non : elles iront à côté de la base de données."_s.arg(QDir::toNativeSeparators(ici)));
  if (choix == Boites::Choix::Annuler) return;
  QString dossier;
  if (choix == Boites::Choix::Oui) {
    dossier = boites.Dossier(u"Sélectionnez le répertoire où mettre les sauvegardes."_s);
    if (dossier.isEmpty() || RefuserInenregistrable(boites, dossier)) return;
  }
  EcrireDossierChoisi(session_.dossiers.AppPath, dossier);
  duJour_->Tenter();
  fait_.Dire(
      u"Les sauvegardes vont dans "_s +
      QDir::toNativeSeparators(dossier.isEmpty() ? lieux.Voisin() : DossierSauvegardes(dossier)));
}
