#include "directory/Apparence.h"

#include "directory/FrmTaillepg.h"
#include "platform/Saisie.h"
#include "ui/Brancheur.h"
#include "ui/Echelle.h"
#include "ui/Guillemet.h"
#include "ui/ZoneAuBesoin.h"

#include <QActionGroup>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

Apparence::Apparence(Session &session, const Actions &actions, QWidget &fenetre,
                     std::function<void()> relancer)
    : session_(session),
      actions_(actions),
      fenetre_(fenetre),
      relancer_(std::move(relancer)),
      tailleEnForce_(session.reglages.rtcolor.TailleFenetre),
      hauteurDessin_(fenetre.height()) {
  Brancher();
  Cocher();
}

void Apparence::Brancher() {
  const Brancheur brancher(session_.plateforme.boites, this);
  const auto grouper = [this](const QList<QAction *> &choix,
                              QActionGroup::ExclusionPolicy politique) {
    auto *groupe = new QActionGroup(this);
    groupe->setExclusionPolicy(politique);
    for (QAction *action : choix) groupe->addAction(action);
  };
  ReglagesPlomex &plomex = session_.reglages.plomex;
  ReglagesRTColor &rtcolor = session_.reglages.rtcolor;
  const Actions &a = actions_;

  grouper({a.mnuDDN, a.mnuAge, a.mnuRien}, QActionGroup::ExclusionPolicy::Exclusive);
  brancher(a.mnuDDN, [this] { ChoisirNaissance(AffichageNaissance::Date); });
  brancher(a.mnuAge, [this] { ChoisirNaissance(AffichageNaissance::Age); });
  brancher(a.mnuRien, [this] { ChoisirNaissance(AffichageNaissance::Rien); });

  grouper({a.mnudegrade, a.mnuUni}, QActionGroup::ExclusionPolicy::Exclusive);
  for (QAction *fond : {a.mnudegrade, a.mnuUni})
    brancher(fond, [this, &rtcolor] {
      rtcolor.FondUni = actions_.mnuUni->isChecked();
      emit Changee();
      EcrireRTColor();
    });

  grouper({a.mnuAgPolListe1, a.mnuAgPolListe2}, QActionGroup::ExclusionPolicy::ExclusiveOptional);
  for (QAction *taille : {a.mnuAgPolListe1, a.mnuAgPolListe2})
    brancher(taille, [this, &plomex] {
      plomex.TaillePoliceTV1 = actions_.mnuAgPolListe1->isChecked();
      plomex.TaillePoliceTV2 = actions_.mnuAgPolListe2->isChecked();
      emit Changee();
    });

  const auto basculer = [this, &brancher](QAction *action, Drapeau &reglage) {
    brancher(action, [this, &reglage](bool actif) {
      reglage = actif;
      EcrireRTColor();
    });
  };
  basculer(a.mnuListe, rtcolor.OuvrirSurFavoris);
  basculer(a.mnuClickDroit, rtcolor.MenuClicDroit);
  basculer(a.mnuEffet, rtcolor.EffetVisuel);

  brancher(a.mnuPlomex, [this, &plomex](bool enveloppes) {
    plomex.Enveloppe = enveloppes;
    EcrireReglages(session_.dossiers.AppPath, plomex);
  });
  brancher(a.mnuGras, [this, &plomex](bool gras) {
    plomex.AdresseEnGras = gras;
    emit Changee();
  });
  brancher(a.mnuAdress, &Apparence::BasculerAdresseImportee);
  brancher(a.mnuPerso, &Apparence::DemanderNom);
  brancher(a.mnuvit, &Apparence::DemanderVitesse);
  brancher(a.mnuPG, &Apparence::ChoisirTaille);
}

void Apparence::Cocher() {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  const ReglagesRTColor &rtcolor = session_.reglages.rtcolor;
  const Actions &a = actions_;
  a.mnuPlomex->setChecked(plomex.Enveloppe);
  a.mnuListe->setChecked(rtcolor.OuvrirSurFavoris);
  a.mnuAdress->setChecked(plomex.Adresse);
  PermettreAdresseImportee();
  a.mnuGras->setChecked(plomex.AdresseEnGras);
  a.mnuClickDroit->setChecked(rtcolor.MenuClicDroit);
  a.mnuEffet->setChecked(rtcolor.EffetVisuel);
  const std::array naissance{a.mnuDDN, a.mnuAge, a.mnuRien};
  if (const auto choix = static_cast<std::size_t>(rtcolor.AffichageNaissance);
      choix < naissance.size())
    naissance[choix]->setChecked(true);
  a.mnuAgPolListe2->setChecked(plomex.TaillePoliceTV2);
  if (plomex.TaillePoliceTV1) a.mnuAgPolListe1->setChecked(true);
  (rtcolor.FondUni.EstNul() ? a.mnudegrade : a.mnuUni)->setChecked(true);
}

Aspect Apparence::LAspect() const {
  const ReglagesPlomex &plomex = session_.reglages.plomex;
  const ReglagesRTColor &rtcolor = session_.reglages.rtcolor;
  const auto canal = [](qint16 valeur) { return std::clamp<int>(valeur, 0, 255); };
  const int dessin = plomex.TaillePoliceTV1 ? 9 : plomex.TaillePoliceTV2 ? 10 : 8;
  const double echelle = Echelle(tailleEnForce_);
  return {
      .titre = u"   Velmiras de "_s + rtcolor.NomPerso,
      .couleur = QColor(canal(rtcolor.CouleurR), canal(rtcolor.CouleurV), canal(rtcolor.CouleurB)),
      .fondUni = !rtcolor.FondUni.EstNul(),
      .points = qRound(PointsAEchelle(dessin * Grossissement(fenetre_.font(), echelle), echelle)),
      .adresseEnGras = plomex.AdresseEnGras,
      .adresseImportee = plomex.Adresse};
}

void Apparence::EcrireRTColor() {
  ::EcrireRTColor(session_.dossiers.AppPath, session_.reglages.rtcolor);
}

void Apparence::ChoisirCouleur() {
  ReglagesRTColor &rtcolor = session_.reglages.rtcolor;
  const auto choix = session_.plateforme.boites.ChoixCouleur(
      {rtcolor.CouleurR, rtcolor.CouleurV, rtcolor.CouleurB});
  if (!choix) return;
  rtcolor.CouleurR = static_cast<qint16>(choix->rouge);
  rtcolor.CouleurV = static_cast<qint16>(choix->vert);
  rtcolor.CouleurB = static_cast<qint16>(choix->bleu);
  emit Changee();
  EcrireRTColor();
}

void Apparence::DemanderNom() {
  Boites &boites = session_.plateforme.boites;
  QString &nom = session_.reglages.rtcolor.NomPerso;
  auto saisi = std::optional(nom);
  do {
    saisi = boites.Saisie(u"Personnaliser"_s, u"Donner vos prénom et nom"_s, *saisi);
    if (!saisi || saisi->trimmed().isEmpty()) return;
  } while (RefuserInenregistrable(boites, *saisi));
  nom = *saisi;
  emit Changee();
  EcrireRTColor();
}

void Apparence::DemanderVitesse() {
  Boites &boites = session_.plateforme.boites;
  qint16 &vitesse = session_.reglages.rtcolor.VitesseTransition;
  const auto reponse = boites.Saisie(u"Vitesse de transition"_s,
                                     u"Vitesse de transition de passage\n"
                                     "entre module Répertoire et module Impression d'enveloppes\n\n"
                                     " (0 à100 en moyenne)"_s,
                                     QString::number(vitesse));
  if (!reponse || reponse->isEmpty()) return;
  const double valeur = std::nearbyint(NombreSaisi(*reponse));
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
  const int hauteur = fenetre_.height();
  const bool libre = !fenetre_.isMaximized() && !fenetre_.isFullScreen();
  const auto montrer = [&](int voulue) {
    const int ecran = ZoneAuBesoin::Libre(*fenetre_.screen()).height();
    if (libre) fenetre_.resize(fenetre_.width(), std::min(voulue, ecran));
  };
  FrmTaillepg dialogue(
      boites, taille, [&](qint32 choisie) { montrer(qRound(hauteurDessin_ * Echelle(choisie))); },
      &fenetre_);
  const bool accepte = dialogue.exec() == QDialog::Accepted;
  montrer(hauteur);
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
  emit NaissanceChangee();
}

void Apparence::PermettreAdresseImportee() {
  const Reglages &reglages = session_.reglages;
  actions_.mnuAdress->setEnabled(reglages.sauvan.AdressesPresentes || reglages.plomex.Adresse);
}

void Apparence::BasculerAdresseImportee(bool importee) {
  session_.reglages.plomex.Adresse = importee;
  PermettreAdresseImportee();
  emit Changee();
  if (importee)
    session_.plateforme.boites.Information(
        u"Les adresses importées de Ondalis ne permettent pas l'impression d'une enveloppe."_s);
  EcrireReglages(session_.dossiers.AppPath, session_.reglages.plomex);
}
