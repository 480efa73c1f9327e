#include "envelope/FrmConfigure.h"

#include "envelope/FormatsEnveloppe.h"
#include "envelope/FrmEtalonnage.h"
#include "envelope/MiseEnPage.h"
#include "envelope/PageEtalon.h"
#include "platform/Saisie.h"
#include "ui/Abandon.h"
#include "ui/Brancheur.h"
#include "ui/FeuilleEcran.h"
#include "ui/SelectionAuFocus.h"
#include "ui/Theme.h"
#include "ui_FrmConfigure.h"

#include <QAbstractItemView>
#include <QButtonGroup>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto kPatience = 300ms;  // a search that is shorter is not told
constexpr double kEchelle = 4;     // millimetres of a setting for one of the picture

// The picture, in millimetres. The left end of the sheet differs between the first view and a
// change of view.
constexpr double kBacGauche = 50;  // left end of the picture
constexpr double kCourt = 52, kLong = 75;
constexpr double kHautPortrait = 6, kHautPaysage = 21;
constexpr double kIndice = 5;  // height of the hint, beside the edge of the sheet that it names
constexpr double kGauchePortrait = 63, kGauchePaysage = 53;
constexpr QRectF kPlaceEnveloppe(12, 14, kLongueurDL.valeur / kEchelle,
                                 kHauteurDL.valeur / kEchelle);
constexpr double kGauchePortraitChoisi = 65, kGauchePaysageChoisi = 52;
constexpr QRectF kZoneAdresse(20, 12.5, 24, 9), kZoneExpediteur(0.5, 1.25, 16, 6);

int Valeur(const QLineEdit *champ) {
  constexpr double kBorne = 100000;  // beyond every setting, within what can be drawn
  return static_cast<int>(std::lround(std::clamp(NombreSaisi(champ->text()), -kBorne, kBorne)));
}

/// A margin is a whole number of millimetres.
QString Texte(Millimetres marge) {
  return QString::number(std::lround(marge.valeur));
}

bool TientSur16Bits(int valeur) {
  return valeur >= std::numeric_limits<qint16>::min() &&
         valeur <= std::numeric_limits<qint16>::max();
}

}  // namespace

FrmConfigure::FrmConfigure(Plateforme &plateforme, Imprimantes &imprimantes,
                           const ReglagesPlomex &plomex, const Taille &enveloppe, QWidget *parent)
    : QDialog(parent),
      plateforme_(plateforme),
      imprimantes_(imprimantes),
      ui_(std::make_unique<Ui::FrmConfigure>()),
      plomex_(plomex),
      enveloppe_(enveloppe) {
  ui_->setupUi(this);
  auto *bords = new QButtonGroup(this);
  bords->addButton(ui_->OptG);
  bords->addButton(ui_->OptD);
  auto *positions = new QButtonGroup(this);
  for (QRadioButton *position : {ui_->OptH, ui_->OptM, ui_->OptB}) positions->addButton(position);
  ui_->CboPrint->lineEdit()->setReadOnly(true);
  ui_->CboPrint->installEventFilter(this);
  Peindre(ui_->Feuille, Qt::white);
  Peindre(ui_->PctCB, QColor(245, 236, 210));
  for (QWidget *zone : {ui_->EtqA, ui_->EtqE}) Peindre(zone, QColor(205, 225, 240));

  const std::array champs{ui_->TxtMH, ui_->TxtMD, ui_->TxtAX, ui_->TxtAY, ui_->TxtEX, ui_->TxtEY};
  for (QLineEdit *champ : champs) {
    new SelectionAuFocus(champ);
    champ->installEventFilter(this);
  }
  ProposerImprimantes(plateforme_.imprimante.NomsConnus());
  montree_ = ui_->CboPrint->currentText();
  Montrer({plomex_, imprimantes_.PapierDe(montree_)});
  ui_->LblRecherche->hide();
  Demander();

  for (QLineEdit *champ : champs)
    connect(champ, &QLineEdit::textChanged, this, &FrmConfigure::Dessiner);
  BrancherMarqueur(ui_->PctCB, ui_->TxtMD, ui_->TxtMH);
  BrancherMarqueur(ui_->EtqA, ui_->TxtAX, ui_->TxtAY);
  BrancherMarqueur(ui_->EtqE, ui_->TxtEX, ui_->TxtEY);
  const auto focus = [this] { ui_->CmdQuitter->setFocus(); };
  for (QRadioButton *sens : {ui_->Opt1, ui_->Opt2})
    connect(sens, &QRadioButton::clicked, this, [this, focus] {
      ChangerVue(true);
      focus();
    });
  for (QRadioButton *bord : {ui_->OptG, ui_->OptD})
    connect(bord, &QRadioButton::clicked, this, &FrmConfigure::EcrireIndice);
  connect(ui_->CboPapier, &QComboBox::activated, this, [this] { ChangerVue(true); });
  connect(ui_->CboPrint, &QComboBox::currentIndexChanged, this, &FrmConfigure::SuivreImprimante);
  const Brancheur brancher(plateforme_.boites, this);
  brancher(ui_->CmdEtalonner, &FrmConfigure::Etalonner);
  for (QRadioButton *position : {ui_->OptH, ui_->OptM, ui_->OptB})
    connect(position, &QRadioButton::clicked, this, focus);
  connect(ui_->CmdQuitter, &QPushButton::clicked, this, &FrmConfigure::Confirmer);
  connect(ui_->CmdAnnule, &QPushButton::clicked, this, [this] { QDialog::reject(); });
}

FrmConfigure::~FrmConfigure() = default;

void FrmConfigure::reject() {
  if (PeutAbandonner(plateforme_.boites, *this)) QDialog::reject();
}

void FrmConfigure::Demander() {
  const auto dire = [this](const QString &texte) {
    ui_->LblRecherche->setText(texte);
    ui_->LblRecherche->setVisible(!texte.isEmpty());
  };
  auto *patience = new QTimer(this);
  patience->setSingleShot(true);
  connect(patience, &QTimer::timeout, this, [dire] { dire(u"Recherche des imprimantes..."_s); });
  patience->start(kPatience);
  plateforme_.imprimante.Demander(this, [this, dire, patience](bool repondu) {
    patience->stop();
    if (repondu) ProposerImprimantes(plateforme_.imprimante.NomsConnus());
    dire(repondu ? QString()
                 : u"Le serveur d'impression ne répond pas : seules les imprimantes déjà connues "
                   "sont proposées."_s);
  });
}

void FrmConfigure::ProposerImprimantes(const QStringList &noms) {
  const QString montree =
      ui_->CboPrint->count() == 0 ? plomex_.Imprimante : ui_->CboPrint->currentText();
  const QString imprimante = NomComplet(noms, montree, kLongueurImprimante).value_or(montree);
  const bool deroulee = ui_->CboPrint->view()->isVisible();
  const QSignalBlocker pasChoisie(ui_->CboPrint);  // it is offered again
  ui_->CboPrint->hidePopup();                      // an open list would keep its old height
  ui_->CboPrint->clear();
  ui_->CboPrint->addItems(noms);
  ui_->CboPrint->setCurrentIndex(static_cast<int>(noms.indexOf(imprimante)));
  ui_->CboPrint->setEditText(imprimante);  // also one that is gone
  if (deroulee) ui_->CboPrint->showPopup();
  if (montree_ == montree) montree_ = imprimante;  // the same one by its whole name
}

void FrmConfigure::ChercherImprimante(const QString &lettres) {
  QAbstractItemView *vue = ui_->CboPrint->view();
  vue->setCurrentIndex(ui_->CboPrint->model()->index(ui_->CboPrint->currentIndex(), 0));
  vue->keyboardSearch(lettres);
  if (vue->currentIndex().isValid()) ui_->CboPrint->setCurrentIndex(vue->currentIndex().row());
}

void FrmConfigure::SuivreImprimante() {
  const QString choisie = ui_->CboPrint->currentText();
  if (choisie.isEmpty() || choisie == montree_) return;
  const Prise avant = Affichee();
  prises_.insert(std::exchange(montree_, choisie), avant);
  Montrer(prises_.value(
      choisie, {imprimantes_.Reglages(choisie, avant.plomex), imprimantes_.PapierDe(choisie)}));
}

void FrmConfigure::Etalonner() {
  FrmEtalonnage(plateforme_, imprimantes_, montree_, PapierChoisi(), this).exec();
  MontrerCorrection();
}

Papier FrmConfigure::PapierChoisi() const {
  return PapierPour(Affichee().plomex, ChoixPapier(), enveloppe_);
}

void FrmConfigure::MontrerCorrection() {
  const Papier papier = PapierChoisi();
  const QString texte = TexteCorrection(imprimantes_.CorrectionDe(montree_, papier), papier.page);
  ui_->LblCorrection->setText(texte.isEmpty() ? u"Aucune correction pour ce papier."_s
                                              : u"Corrigée : %1."_s.arg(texte));
  // A file is as it is read.
  ui_->CmdEtalonner->setEnabled(!montree_.isEmpty() && montree_ != Imprimante::NomPdf());
}

void FrmConfigure::Montrer(const Prise &prise) {
  const ReglagesPlomex &plomex = prise.plomex;
  ui_->TxtMH->setText(Texte(plomex.MargeHaute));
  ui_->TxtMD->setText(Texte(plomex.MargeDroite));
  ui_->TxtAX->setText(Texte(plomex.MargeMAX));
  ui_->TxtAY->setText(Texte(plomex.MargeMAY));
  ui_->TxtEX->setText(Texte(plomex.MargeMEX));
  ui_->TxtEY->setText(Texte(plomex.MargeMEY));

  const bool portrait = plomex.Orientation == OrientationFeuille::Portrait;
  (portrait ? ui_->Opt1 : ui_->Opt2)->setChecked(true);
  (plomex.BordImprime == BordImprime::Gauche ? ui_->OptG : ui_->OptD)->setChecked(true);
  (plomex.PositionEnveloppe == PositionEnveloppe::Haut     ? ui_->OptH
   : plomex.PositionEnveloppe == PositionEnveloppe::Milieu ? ui_->OptM
                                                           : ui_->OptB)
      ->setChecked(true);
  ui_->CboPapier->setCurrentIndex(static_cast<int>(prise.papier));
  ChangerVue(false);
}

PapierEnveloppe FrmConfigure::ChoixPapier() const {
  return static_cast<PapierEnveloppe>(ui_->CboPapier->currentIndex());
}

FrmConfigure::Prise FrmConfigure::Affichee() const {
  ReglagesPlomex plomex = plomex_;
  plomex.Imprimante = ui_->CboPrint->currentText();
  plomex.Orientation =
      ui_->Opt1->isChecked() ? OrientationFeuille::Portrait : OrientationFeuille::Paysage;
  plomex.BordImprime = ui_->OptG->isChecked() ? BordImprime::Gauche : BordImprime::Droit;
  plomex.PositionEnveloppe = ui_->OptH->isChecked()   ? PositionEnveloppe::Haut
                             : ui_->OptM->isChecked() ? PositionEnveloppe::Milieu
                                                      : PositionEnveloppe::Bas;
  plomex.MargeHaute = Millimetres(Valeur(ui_->TxtMH));
  plomex.MargeDroite = Millimetres(Valeur(ui_->TxtMD));
  plomex.MargeMAX = Millimetres(Valeur(ui_->TxtAX));
  plomex.MargeMAY = Millimetres(Valeur(ui_->TxtAY));
  plomex.MargeMEX = Millimetres(Valeur(ui_->TxtEX));
  plomex.MargeMEY = Millimetres(Valeur(ui_->TxtEY));
  return {plomex, ChoixPapier()};
}

void FrmConfigure::BrancherMarqueur(Deplacable *marqueur, QLineEdit *x, QLineEdit *y) {
  marqueur->ChangerPas(1 / kEchelle);
  auto depart = std::make_shared<QPoint>();
  connect(marqueur, &Deplacable::Pris, this,
          [depart, x, y] { *depart = QPoint(Valeur(x), Valeur(y)); });
  connect(marqueur, &Deplacable::Deplace, this, [depart, x, y](QPointF deplacement) {
    const QPoint place = *depart + (deplacement * kEchelle).toPoint();
    x->setText(QString::number(place.x()));
    y->setText(QString::number(place.y()));
  });
}

void FrmConfigure::ChangerVue(bool choisie) {
  const bool portrait = ui_->Opt1->isChecked(),
             enveloppe = ChoixPapier() != PapierEnveloppe::FeuilleA4;
  const bool bords = enveloppe ? ChoixPapier() == PapierEnveloppe::PetitCote : !portrait;
  for (QWidget *sens : {ui_->Opt1, ui_->Opt2}) sens->setVisible(!enveloppe);
  for (QWidget *place :
       std::initializer_list<QWidget *>{ui_->LblEnveloppe, ui_->OptH, ui_->OptM, ui_->OptB})
    place->setVisible(!enveloppe);
  ui_->LblNote->setVisible(bords);
  ui_->PctOpt->setVisible(bords);
  ui_->Pct->setAccessibleName(enveloppe ? u"Enveloppe dans le bac"_s : u"Feuille A4 dans le bac"_s);
  if (enveloppe)
    PlacerFeuille(kPlaceEnveloppe, ChoixPapier() == PapierEnveloppe::GrandCote);
  else if (portrait)
    PlacerFeuille({(choisie ? kGauchePortraitChoisi : kGauchePortrait) - kBacGauche, kHautPortrait,
                   kCourt, kLong},
                  true);
  else
    PlacerFeuille({(choisie ? kGauchePaysageChoisi : kGauchePaysage) - kBacGauche, kHautPaysage,
                   kLong, kCourt},
                  false);
  EcrireIndice();
  Dessiner();
}

void FrmConfigure::PlacerFeuille(const QRectF &feuille, bool indiceDessus) {
  const double k = PixelsParMillimetre(*this);
  const QRectF avecIndice =
      feuille.adjusted(0, indiceDessus ? -kIndice : 0, 0, indiceDessus ? 0 : kIndice);
  const auto pixels = [k](const QRectF &place) {
    return QRectF(place.topLeft() * k, place.size() * k).toRect();
  };
  const QRect cadre = pixels(avecIndice);
  ui_->Pct->setGeometry(cadre);
  ui_->Feuille->setGeometry(pixels(feuille).translated(-cadre.topLeft()));
}

void FrmConfigure::EcrireIndice() {
  MontrerCorrection();
  if (ChoixPapier() != PapierEnveloppe::FeuilleA4) {
    const bool grand = ChoixPapier() == PapierEnveloppe::GrandCote, gauche = ui_->OptG->isChecked();
    ui_->Pct->setAlignment(grand    ? Qt::AlignHCenter | Qt::AlignTop
                           : gauche ? Qt::AlignLeft | Qt::AlignBottom
                                    : Qt::AlignRight | Qt::AlignBottom);
    ui_->Pct->setText(grand    ? u"↑ Ce côté entre le premier ↑"_s
                      : gauche ? u"<= Ce côté entre le premier"_s
                               : u"Ce côté entre le premier =>"_s);
    return;
  }
  // Beside the edge that the hint speaks of, where the envelope never lies.
  ui_->Pct->setAlignment(Qt::AlignLeft | (ui_->Opt1->isChecked() ? Qt::AlignTop : Qt::AlignBottom));
  ui_->Pct->setText(ui_->Opt1->isChecked() ? u"  Haut de la feuille A4 dans le bac"_s
                    : ui_->OptG->isChecked()
                        ? u"                   <= Bas de la feuille A4 dans le bac"_s
                        : u"                   Bas de la feuille A4 dans le bac =>"_s);
}

void FrmConfigure::Dessiner() {
  const double k = PixelsParMillimetre(*this);
  constexpr QSizeF kEnveloppe(kLongueurDL.valeur / kEchelle, kHauteurDL.valeur / kEchelle);
  const auto placer = [k](QWidget *surface, const QRectF &zone, const QLineEdit *x,
                          const QLineEdit *y) {
    const QRectF place = zone.translated(Valeur(x) / kEchelle, Valeur(y) / kEchelle);
    surface->setGeometry(QRectF(place.topLeft() * k, place.size() * k).toRect());
  };
  placer(ui_->PctCB, QRectF(QPointF(0, 0), kEnveloppe), ui_->TxtMD, ui_->TxtMH);
  placer(ui_->EtqA, kZoneAdresse, ui_->TxtAX, ui_->TxtAY);
  placer(ui_->EtqE, kZoneExpediteur, ui_->TxtEX, ui_->TxtEY);
}

bool FrmConfigure::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::MouseButtonPress || evenement->type() == QEvent::FocusOut)
    signe_.clear();
  if (evenement->type() != QEvent::KeyPress) return QDialog::eventFilter(objet, evenement);
  const QString frappe = static_cast<QKeyEvent *>(evenement)->text();
  if (objet == ui_->CboPrint) {
    if (frappe.isEmpty() || !frappe.front().isPrint()) return false;
    ChercherImprimante(frappe);
    return true;
  }
  auto *champ = static_cast<QLineEdit *>(objet);
  if (frappe == u"+"_s || frappe == u"-"_s) {
    Compter(champ, frappe == u"+"_s ? 1 : -1);
    signe_ = frappe;
    return true;
  }
  const QString signe = std::exchange(signe_, {});
  if (!signe.isEmpty() && !frappe.isEmpty() && frappe.front().isDigit())
    champ->setText(signe == u"-"_s ? signe : QString());
  return false;
}

void FrmConfigure::Compter(QLineEdit *champ, int pas) {
  const int valeur = Valeur(champ) + pas;
  champ->setText(QString::number(valeur));
  champ->setModified(true);
  // What is typed next takes the place of the digits: the sign may have been meant as one.
  champ->setSelection(valeur < 0 ? 1 : 0, static_cast<int>(champ->text().size()));
}

void FrmConfigure::Confirmer() {
  if (ui_->CboPrint->currentText().isEmpty()) {
    plateforme_.boites.Information(u"Vous n'avez pas fait le choix de l'imprimante !"_s);
    ui_->CboPrint->setFocus();
    return;
  }
  const struct {
    QLineEdit *champ;
    Millimetres ReglagesPlomex::*marge;
  } marges[] = {
      {ui_->TxtMH, &ReglagesPlomex::MargeHaute}, {ui_->TxtMD, &ReglagesPlomex::MargeDroite},
      {ui_->TxtAX, &ReglagesPlomex::MargeMAX},   {ui_->TxtAY, &ReglagesPlomex::MargeMAY},
      {ui_->TxtEX, &ReglagesPlomex::MargeMEX},   {ui_->TxtEY, &ReglagesPlomex::MargeMEY}};
  for (const auto &[champ, marge] : marges) {
    if (TientSur16Bits(Valeur(champ))) continue;
    plateforme_.boites.Information(u"Valeur non conforme !"_s);
    champ->setText(Texte(plomex_.*marge));
    champ->setFocus();
    return;
  }
  plomex_ = Affichee().plomex;
  accept();
}
