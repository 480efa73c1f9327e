#include "directory/FrmLoupe.h"

#include "storage/Lignes.h"
#include "ui/CouleurNumero.h"
#include "ui/EtiquetteElidee.h"
#include "ui/Icones.h"
#include "ui/Montrable.h"

#include <QGridLayout>
#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTitre = 28, kNumero = 24, kLibelle = 14;  // points

EtiquetteElidee *Etiquette(QWidget *parent, const QString &nom, const QString &texte, int points) {
  auto *etiquette = new EtiquetteElidee(parent);
  etiquette->setObjectName(nom);
  QFont font = etiquette->font();
  font.setPointSize(points);
  etiquette->setFont(font);
  etiquette->setText(texte);
  return etiquette;
}

}  // namespace

FrmLoupe::FrmLoupe(const Correspondant &fiche) {
  setObjectName(u"FrmLoupe"_s);
  setWindowTitle(Montrable(fiche.NomVelmira, 80));
  setWindowIcon(IconeProgramme());
  setFocusPolicy(Qt::StrongFocus);
  resize(720, 400);

  auto *grille = new QGridLayout(this);
  grille->setContentsMargins(32, 24, 32, 24);
  grille->setHorizontalSpacing(24);
  grille->setVerticalSpacing(12);
  grille->setColumnMinimumWidth(0, 180);
  grille->setColumnStretch(1, 1);
  constexpr qsizetype kLisible = 200;  // characters; more would not fit the screen
  auto *nom = new QLabel(Montrable(fiche.NomVelmira, kLisible), this);
  nom->setObjectName(u"LblNLoupe"_s);
  nom->setTextFormat(Qt::PlainText);
  nom->setWordWrap(true);
  QFont gras = nom->font();
  gras.setPointSize(kTitre);
  gras.setBold(true);
  nom->setFont(gras);
  grille->addWidget(nom, 0, 0, 1, 2);

  const struct {
    QString nomLibelle, libelle, nomValeur, valeur;
    bool listeRouge;
  } lignes[] = {
      {u"LblTel"_s, u"Domicile"_s, u"LblPLoupe"_s, fiche.Tel, fiche.ListeRougeTel},
      {u"LblTelT"_s, u"Travail"_s, u"LblPTLoupe"_s, fiche.TelTravail, fiche.ListeRougeTravail},
      {u"LblPort"_s, u"Portable"_s, u"LblPoLoupe"_s, fiche.Portable, false},
      {u"LblFax"_s, u"Fax"_s, u"LblFLoupe"_s, fiche.Fax, false},
  };
  int rang = 1;
  for (const auto &ligne : lignes) {
    auto *libelle = Etiquette(this, ligne.nomLibelle, ligne.libelle, kLibelle);
    auto *valeur = Etiquette(this, ligne.nomValeur, ligne.valeur, kNumero);
    Colorer(valeur, CouleurNumero(ligne.listeRouge, palette()));
    libelle->setVisible(!ligne.valeur.isEmpty());
    valeur->setVisible(!ligne.valeur.isEmpty());
    grille->addWidget(libelle, rang, 0);
    grille->addWidget(valeur, rang++, 1);
  }
  grille->setRowStretch(rang++, 1);
  auto *fin = Etiquette(this, u"LblExit"_s, u"Cliquez n'importe où pour fermer"_s, kLibelle);
  Colorer(fin, palette().color(QPalette::Disabled, QPalette::WindowText));
  grille->addWidget(fin, rang, 0, 1, 2);
}

void FrmLoupe::mousePressEvent(QMouseEvent *) {
  close();
}

void FrmLoupe::keyPressEvent(QKeyEvent *evenement) {
  switch (evenement->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      close();
      break;
    default:
      QWidget::keyPressEvent(evenement);
  }
}

void FrmLoupe::closeEvent(QCloseEvent *evenement) {
  QWidget::closeEvent(evenement);
  emit Quittee();
}
