#include "alerts/MenuMemora.h"

#include "alerts/Compagnons.h"
#include "ui/Brancheur.h"

using namespace Qt::StringLiterals;

MenuMemora::MenuMemora(Session &session, QWidget *parent)
    : QMenu(u"&Memora"_s, parent), session_(session) {
  setObjectName(u"mnuInv3"_s);
  const Brancheur brancher(session_.plateforme.boites, this);
  const auto ajouter = [&](const QString &nom, const QString &texte, auto commande) {
    QAction *action = addAction(texte);
    action->setObjectName(nom);
    brancher(action, commande);
    return action;
  };
  ajouter(u"mnuLancerPI"_s, u"&Lancer Memora"_s,
          [this] { session_.plateforme.coquille.Lancer(Programme()); });
  mnuLancerPIDW = ajouter(u"mnuLancerPIDW"_s, u"Lancer Memora au &démarrage de Windows"_s,
                          &MenuMemora::BasculerDemarrage);
  mnuAssocier = ajouter(u"mnuAssocier"_s, u"&Associer Memora aux alertes d'évènements"_s,
                        &MenuMemora::BasculerAssociation);
  ajouter(u"mnuRaccourci"_s, u"Créer un &raccourci sur le bureau"_s, &MenuMemora::CreerRaccourci);
  ajouter(u"mnuExplique"_s, u"&Explications"_s, &MenuMemora::Expliquer);
  for (QAction *action : {mnuLancerPIDW, mnuAssocier}) action->setCheckable(true);
  connect(this, &QMenu::aboutToShow, this, &MenuMemora::MajCoches);
  MajCoches();
}

void MenuMemora::MajCoches() {
  mnuLancerPIDW->setChecked(session_.reglages.memora.LancerAuDemarrage);
  mnuAssocier->setChecked(session_.reglages.memora.AssocierAlertes);
}

void MenuMemora::BasculerDemarrage(bool coche) {
  ReglagesMemora &memora = session_.reglages.memora;
  ListeDemarrage &liste = session_.plateforme.demarrage;
  memora.LancerAuDemarrage = coche;
  if (coche) {
    memora.AssocierAlertes = false;
    InscrireDemarrage(liste, session_.dossiers.AppPath, Compagnon::Memora);
  } else {
    RetirerDemarrage(liste, Compagnon::Memora);
  }
  Enregistrer();
}

void MenuMemora::BasculerAssociation(bool coche) {
  ReglagesMemora &memora = session_.reglages.memora;
  memora.AssocierAlertes = coche;
  if (coche) {
    memora.LancerAuDemarrage = false;
    RetirerDemarrage(session_.plateforme.demarrage, Compagnon::Memora);
  }
  Enregistrer();
}

void MenuMemora::Enregistrer() {
  MajCoches();
  emit Change();
  EcrireMemora(session_.dossiers.AppPath, session_.reglages.memora);
}

void MenuMemora::CreerRaccourci() {
  Boites &boites = session_.plateforme.boites;
  Coquille &coquille = session_.plateforme.coquille;
  const QString nom =
      boites.Saisie(Boites::Titre(), u"Nom donné au raccourci :"_s, u"Memora"_s).value_or(u""_s);
  if (nom.isEmpty()) return;
  if (coquille.LienExiste(nom)) {
    boites.Information(u"Le raccourci pour "_s + nom + u" existe déjà !"_s);
    return;
  }
  coquille.CreerLien(nom, Programme());
  boites.Information(u"Raccourci pour "_s + nom + u" créé !"_s);
}

void MenuMemora::Expliquer() {
  session_.plateforme.boites.Information(
      u"UN NOUVEAU MEMORA ... pour les utilisateurs de XP, essentiellement ...\n\n"_s +
      QString(104, u'_') +
      u"\n\nIl permet d'afficher au maximum 3 Memora, redimensionnables, et déplaçables sur "
      "l'écran.\n\n"
      "Memora peut être utilisé de 4 façons :\n\n"
      "1-  En le lançant à partir de 'Velmira OU Impression d'enveloppes' (icône Memora)\n"
      "2-  De façon autonome, en créant un raccourci sur le bureau (raccourci réalisable "
      "facilement à partir du menu, dans 'icône Memora')\n"
      "3-  En choisissant de le lancer au démarrage de Windows (menu, dans 'icône Memora')\n"
      "4-  en l'associant au module 'Alertes' (menu, dans 'icône Memora') :\n"
      " Dans ce cas, et si le module 'Alertes' est choisi comme 'LANCER AU DEMARRAGE DE "
      "WINDOWS', Memora ne sera lancé que si une information doit être signalée, au même titre "
      "qu'une alerte.\n\n"_s +
      QString(74, u'_') +
      u"\n\nLorsque Memora est activé, une icône est affichée près de l'horloge.\n\n"
      "Un click droit sur cette icône affiche un menu contextuel ; idem un click droit sur un "
      "Memora\n\n"
      "Quelque soit le cas de figure, Memora, (comme le module 'Alertes'), n'est vraiment utile "
      "que s'il est lancé au démarrage de Windows,\n"
      "(soit de façon autonome, soit en l'associant au module 'Alertes', lui même étant choisi "
      "comme 'LANCER AU DEMARRAGE DE WINDOWS') \n"_s);
}

QString MenuMemora::Programme() const {
  return CheminCompagnon(session_.dossiers.AppPath, Compagnon::Memora);
}
