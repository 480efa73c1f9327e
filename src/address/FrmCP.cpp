#include "address/FrmCP.h"

#include "address/CodesPostaux.h"
#include "platform/Erreurs.h"
#include "platform/Fichiers.h"
#include "ui/Brancheur.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

FrmCP::FrmCP(Boites &boites, const QString &appPath, QWidget *parent)
    : QDialog(parent), boites_(boites), appPath_(appPath), LstCP(new QListWidget(this)) {
  setObjectName(u"FrmCP"_s);
  setWindowTitle(u"  Recherche de code Postal"_s);
  resize(420, 420);
  auto *colonne = new QVBoxLayout(this);
  colonne->setSpacing(12);
  LstCP->setObjectName(u"LstCP"_s);
  LstCP->setAccessibleName(u"Codes et communes trouvés"_s);
  LstCP->setFont(QFont(u"Courier New"_s));
  LstCP->setUniformItemSizes(true);
  colonne->addWidget(LstCP);
  auto *boutons = new QHBoxLayout;
  colonne->addLayout(boutons);
  const auto bouton = [&](const QString &nom, const QString &texte) {
    auto *b = new QPushButton(texte, this);
    b->setObjectName(nom);
    boutons->addWidget(b);
    return b;
  };
  auto *recherche = bouton(u"CmdRecherche"_s, u"&Rechercher..."_s);
  auto *aide = bouton(u"CmdAide"_s, u"&Aide"_s);
  connect(aide, &QPushButton::clicked, this, [this] {
    boites_.Information(
        u"Cherchez par une partie d'un code ou du nom d'une commune.\n"
        "Puis double-cliquez sur la ligne voulue, ou choisissez-la et cliquez sur OK."_s);
  });
  boutons->addStretch();
  auto *quitter = bouton(u"CmdQuitter"_s, u"&OK"_s);
  Brancheur(boites_, this)(recherche, &FrmCP::Chercher);
  connect(quitter, &QPushButton::clicked, this, &FrmCP::Prendre);
  connect(LstCP, &QListWidget::itemDoubleClicked, this, &FrmCP::Prendre);
  connect(LstCP, &QListWidget::itemClicked, quitter, [quitter] { quitter->setFocus(); });
  recherche->setFocus();
}

void FrmCP::Chercher() {
  LstCP->clear();
  const QString texte =
      boites_.Saisie(u"Code Postal"_s,
                     u"Inscrivez 3 lettres ou plus du nom recherché \n"
                     "(soit code postal - ex : 440 - soit commune - ex : Nant -).\n"
                     "(ST ou STE pour Saint ou Sainte)"_s,
                     u""_s);
  if (texte.isEmpty()) return;
  const auto octets = LireFichier(appPath_ + u"/CdPostal.txt"_s);
  if (!octets)
    throw ErreurFichier(
        u"Le fichier « CdPostal.txt » est introuvable dans « %1 »."_s.arg(appPath_));
  LstCP->addItems(ChercherCodes(*octets, texte));
  if (LstCP->count() == 0) boites_.Information(u"Echec de la recherche !"_s);
}

void FrmCP::Prendre() {
  const auto choisis = LstCP->selectedItems();
  if (!choisis.isEmpty()) ligne_ = choisis.first()->text();
  accept();
}
