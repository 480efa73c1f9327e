#include "directory/Apparence.h"

#include "directory/FrmTaillepg.h"
#include "platform/Saisie.h"
#include "ui/Bulle.h"
#include "ui/Echelle.h"
#include "ui/FondDegrade.h"
#include "ui/Garde.h"
#include "ui/Guillemet.h"
#include "ui/Theme.h"
#include "ui_FrmVelmira.h"

#include <QActionGroup>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

Apparence::Apparence(Session &session, Ui::FrmVelmira &ui, QWidget &fenetre,
                     std::function<void()> relancer)
    : session_(session),
      ui_(ui),
      fenetre_(fenetre),
      relancer_(std::move(relancer)),
      tailleEnForce_(session.reglages.rtcolor.TailleFenetre),
      hauteurDessin_(fenetre.height()),
      hauteurMinDessin_(fenetre.minimumHeight()) {
  ui_.Fond->PoserPanneaux({ui_.PanneauCommandes, ui_.Gauche, ui_.Fiche, ui_.PanneauJour});
  Brancher();
  Appliquer();
  PoserBulles();
}

void Apparence::Brancher() {
  const auto brancher = [this](QAction *action, auto commande) {
    connect(action, &QAction::triggered, this, Garde(session_.plateforme.boites, commande));
  };
  const auto grouper = [this](const QList<QAction *> &choix,
                              QActionGroup::ExclusionPolicy politique) {
    auto *groupe = new QActionGroup(this);
    groupe->setExclusionPolicy(politique);
    for (QAction *action : choix) groupe->addAction(action);
  };
  ReglagesPlomex &plomex = session_.reglages.plomex;
  ReglagesRTColor &rtcolor = session_.reglages.rtcolor;

  grouper({ui_.mnuDDN, ui_.mnuAge, ui_.mnuRien}, QActionGroup::ExclusionPolicy::Exclusive);
  brancher(ui_.mnuDDN, [this](bool) { ChoisirNaissance(AffichageNaissance::Date); });
  brancher(ui_.mnuAge, [this](bool) { ChoisirNaissance(AffichageNaissance::Age); });
  brancher(ui_.mnuRien, [this](bool) { ChoisirNaissance(AffichageNaissance::Rien); });

  grouper({ui_.mnudegrade, ui_.mnuUni}, QActionGroup::ExclusionPolicy::Exclusive);
  for (QAction *fond : {ui_.mnudegrade, ui_.mnuUni})
    brancher(fond, [this, &rtcolor](bool) {
      rtcolor.FondUni = ui_.mnuUni->isChecked();
      MontrerFond();
      EcrireRTColor();
    });

  grouper({ui_.mnuAgPolListe1, ui_.mnuAgPolListe2},
          QActionGroup::ExclusionPolicy::ExclusiveOptional);
  for (QAction *taille : {ui_.mnuAgPolListe1, ui_.mnuAgPolListe2})
    brancher(taille, [this, &plomex](bool) {
      plomex.TaillePoliceTV1 = ui_.mnuAgPolListe1->isChecked();
      plomex.TaillePoliceTV2 = ui_.mnuAgPolListe2->isChecked();
      MontrerPoliceListe();
    });

  const auto basculer = [this, brancher](QAction *action, Drapeau &reglage) {
    brancher(action, [this, &reglage](bool actif) {
      reglage = actif;
      EcrireRTColor();
    });
  };
  basculer(ui_.mnuListe, rtcolor.OuvrirSurFavoris);
  basculer(ui_.mnuClickDroit, rtcolor.MenuClicDroit);
  basculer(ui_.mnuEffet, rtcolor.EffetVisuel);

  brancher(ui_.mnuPlomex, [this, &plomex](bool enveloppes) {
    plomex.Enveloppe = enveloppes;
    EcrireReglages(session_.dossiers.AppPath, plomex);
  });
  brancher(ui_.mnuGras, [this, &plomex](bool gras) {
    plomex.AdresseEnGras = gras;
    ui_.Fiche->MettreAdresseEnGras(gras);
  });
  brancher(ui_.mnuAdress, [this](bool importee) { BasculerAdresseImportee(importee); });
  brancher(ui_.mnuPerso, [this](bool) { DemanderNom(); });
  brancher(ui_.mnuvit, [this](bool) { DemanderVitesse(); });
  brancher(ui_.mnuPG, [this](bool) { ChoisirTaille(); });
}

void Apparence::Appliquer() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  const ReglagesRTColor &rtcolor = session_.reglages.rtcolor;
  ui_.mnuPlomex->setChecked(plomex.Enveloppe);
  ui_.mnuListe->setChecked(rtcolor.OuvrirSurFavoris);
  ui_.mnuAdress->setChecked(plomex.Adresse);
  ui_.mnuAdress->setEnabled(session_.reglages.sauvan.AdressesPresentes);
  ui_.mnuGras->setChecked(plomex.AdresseEnGras);
  ui_.mnuClickDroit->setChecked(rtcolor.MenuClicDroit);
  ui_.mnuEffet->setChecked(rtcolor.EffetVisuel);
  const std::array naissance{ui_.mnuDDN, ui_.mnuAge, ui_.mnuRien};
  if (const auto choix = static_cast<std::size_t>(rtcolor.AffichageNaissance);
      choix < naissance.size())
    naissance[choix]->setChecked(true);
  ui_.mnuAgPolListe2->setChecked(plomex.TaillePoliceTV2);
  if (plomex.TaillePoliceTV1) ui_.mnuAgPolListe1->setChecked(true);
  (rtcolor.FondUni.EstNul() ? ui_.mnudegrade : ui_.mnuUni)->setChecked(true);

  ui_.Fiche->MettreAdresseEnGras(plomex.AdresseEnGras);
  ui_.Fiche->MontrerAdresseImportee(plomex.Adresse);
  MontrerTitre();
  MontrerCouleur();
  MontrerFond();
  MontrerPoliceListe();
}

void Apparence::PoserBulles() {
  constexpr int kLargeurListe = 80;
  Horloge &horloge = session_.plateforme.horloge;
  PoserBulle(ui_.CmdCherche, horloge, {u"Recherche rapide"_s, kBulleBrune, kLargeurListe});
  PoserBulle(ui_.CmdFavoris, horloge, {u"Ajouter aux favoris"_s, kBulleBrune, kLargeurListe});
}

void Apparence::EcrireRTColor() {
  ::EcrireRTColor(session_.dossiers.AppPath, session_.reglages.rtcolor);
}

void Apparence::MontrerTitre() {
  fenetre_.setWindowTitle(u"   Velmiras de "_s + session_.reglages.rtcolor.NomPerso);
}

void Apparence::MontrerCouleur() {
  const ReglagesRTColor &rtcolor = session_.reglages.rtcolor;
  const auto canal = [](qint16 valeur) { return std::clamp<int>(valeur, 0, 255); };
  const QColor couleur(canal(rtcolor.CouleurR), canal(rtcolor.CouleurV), canal(rtcolor.CouleurB));
  QPalette palette;
  palette.setColor(QPalette::Window, couleur);
  palette.setColor(QPalette::WindowText, EncreSur(couleur));
  ui_.PanneauCommandes->setPalette(palette);
  ui_.Fond->update();
}

void Apparence::MontrerFond() {
  ui_.Fond->Choisir(!session_.reglages.rtcolor.FondUni.EstNul());
}

void Apparence::MontrerPoliceListe() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  const int dessin = plomex.TaillePoliceTV1 ? 9 : plomex.TaillePoliceTV2 ? 10 : 8;
  const int points = qRound(PointsAEchelle(dessin, Echelle(tailleEnForce_)));
  QFont font = fenetre_.font();
  font.setPointSize(points);
  ui_.TV->setFont(font);
  ui_.CboCat->setFont(font);
  ui_.Fiche->ChangerTaillePolice(points);
}

void Apparence::ChoisirCouleur() {
  ReglagesRTColor &rtcolor = session_.reglages.rtcolor;
  const auto choix = session_.plateforme.boites.ChoixCouleur(
      {rtcolor.CouleurR, rtcolor.CouleurV, rtcolor.CouleurB});
  if (!choix) return;
  rtcolor.CouleurR = static_cast<qint16>(choix->rouge);
  rtcolor.CouleurV = static_cast<qint16>(choix->vert);
  rtcolor.CouleurB = static_cast<qint16>(choix->bleu);
  MontrerCouleur();
  EcrireRTColor();
}

void Apparence::DemanderNom() {
  Boites &boites = session_.plateforme.boites;
  QString &nom = session_.reglages.rtcolor.NomPerso;
  const QString reponse = boites.Saisie(u"Personnaliser"_s, u"Donner vos prénom et nom"_s, nom);
  if (reponse.isEmpty() || RefuserGuillemet(boites, reponse)) return;
  nom = reponse;
  MontrerTitre();
  EcrireRTColor();
}

void Apparence::DemanderVitesse() {
  Boites &boites = session_.plateforme.boites;
  qint16 &vitesse = session_.reglages.rtcolor.VitesseTransition;
  const QString reponse =
      boites.Saisie(u"Vitesse de transition"_s,
                    u"Vitesse de transition de passage\n"
                    "entre module Répertoire et module Impression d'enveloppes\n\n"
                    " (0 à100 en moyenne)"_s,
                    QString::number(vitesse));
  if (reponse.isEmpty()) return;
  const double valeur = std::nearbyint(NombreSaisi(reponse));
  if (valeur < 0 || valeur > std::numeric_limits<qint16>::max()) {
    boites.Information(u"Valeur non conforme !"_s);
    return;
  }
  vitesse = static_cast<qint16>(valeur);
  EcrireRTColor();
}

void Apparence::ChoisirTaille() {
  Boites &boites = session_.plateforme.boites;
  qint32 &taille = session_.reglages.rtcolor.TailleFenetre;
  const int hauteur = fenetre_.height(), hauteurMin = fenetre_.minimumHeight();
  const bool libre = !fenetre_.isMaximized() && !fenetre_.isFullScreen();
  const auto montrer = [&](int minimum, int actuelle) {
    if (!libre) return;
    fenetre_.setMinimumHeight(minimum);
    fenetre_.resize(fenetre_.width(), actuelle);
  };
  FrmTaillepg dialogue(
      boites, taille,
      [&](qint32 choisie) {
        montrer(qRound(hauteurMinDessin_ * Echelle(choisie)),
                qRound(hauteurDessin_ * Echelle(choisie)));
      },
      &fenetre_);
  const bool accepte = dialogue.exec() == QDialog::Accepted;
  montrer(hauteurMin, hauteur);
  if (!accepte) return;
  taille = dialogue.Taille();
  EcrireRTColor();
  if (boites.Question(Boites::Titre(),
                      u"Appliquer les modifications maintenant (recommandé) ?"_s) ==
      Boites::Reponse::Oui)
    relancer_();
  else
    boites.Information(
        u"Ce paramètre sera pris en compte lors du prochain lancement du programme."_s);
}

void Apparence::ChoisirNaissance(AffichageNaissance affichage) {
  session_.reglages.rtcolor.AffichageNaissance = affichage;
  EcrireRTColor();
  ui_.TV->CliquerSelection();
}

void Apparence::BasculerAdresseImportee(bool importee) {
  session_.reglages.plomex.Adresse = importee;
  ui_.Fiche->MontrerAdresseImportee(importee);
  if (importee)
    session_.plateforme.boites.Information(
        u"Les adresses importées de Ondalis ne permettent pas l'impression d'une enveloppe."_s);
  EcrireReglages(session_.dossiers.AppPath, session_.reglages.plomex);
}
