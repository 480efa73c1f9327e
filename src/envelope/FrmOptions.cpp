#include "envelope/FrmOptions.h"

#include "envelope/Raccourci.h"
#include "ui/Abandon.h"
#include "ui/CochesLiees.h"
#include "ui/Guillemet.h"
#include "ui/SelectionAuFocus.h"
#include "ui/ZoneAuBesoin.h"
#include "ui_FrmOptions.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

/// Selects a value, which is added where the list lacks it, so that confirming keeps it.
void Selectionner(QComboBox *liste, const QString &valeur) {
  if (valeur.isEmpty()) {
    liste->setCurrentIndex(-1);
    return;
  }
  if (liste->findText(valeur, Qt::MatchFixedString | Qt::MatchCaseSensitive) < 0)
    liste->insertItem(0, valeur);
  liste->setCurrentText(valeur);
}

QStringList Tailles(std::initializer_list<int> points) {
  QStringList textes;
  for (const int taille : points) textes.append(QString::number(taille));
  return textes;
}

using Alignements = std::array<QRadioButton *, 3>;  // by the alignment that they stand for

/// One that is none of the three ticks nothing.
void Cocher(const Alignements &boutons, Alignement alignement) {
  if (const auto i = static_cast<std::size_t>(alignement); i < boutons.size())
    boutons[i]->setChecked(true);
}

std::optional<Alignement> Coche(const Alignements &boutons) {
  for (qint16 i = 0; i < static_cast<qint16>(boutons.size()); ++i)
    if (boutons[static_cast<std::size_t>(i)]->isChecked()) return static_cast<Alignement>(i);
  return std::nullopt;
}

QString TexteTaille(int points) {
  return points > 0 ? QString::number(points) : QString();
}

}  // namespace

FrmOptions::FrmOptions(Boites &boites, const QStringList &polices, const Valeurs &valeurs,
                       QWidget *parent)
    : QDialog(parent), boites_(boites), ui_(std::make_unique<Ui::FrmOptions>()), valeurs_(valeurs) {
  ui_->setupUi(this);
  optA_ = {ui_->OptA_0, ui_->OptA_1, ui_->OptA_2};
  optE_ = {ui_->OptE_0, ui_->OptE_1, ui_->OptE_2};
  new CochesLiees(ui_->ChkSL, {ui_->ChkSLD, ui_->ChkSLP});
  new CochesLiees(ui_->ChkGA, {ui_->ChkDLG, ui_->ChkPLG});
  new SelectionAuFocus(ui_->TxtLiaison);
  BrancherPolice(ui_->CboPolicesA, ui_->LblExempleA);
  BrancherPolice(ui_->CboPolicesE, ui_->LblExempleE);
  connect(ui_->ChkNorme, &QCheckBox::toggled, this, &FrmOptions::OuvrirNorme);
  Montrer(polices);
  for (const auto &alignements : {optA_, optE_})
    for (QRadioButton *alignement : alignements)
      connect(alignement, &QRadioButton::clicked, this, [this] { ui_->CmdQuitter->setFocus(); });
  connect(ui_->CmdQuitter, &QPushButton::clicked, this, &FrmOptions::Confirmer);
  connect(ui_->CmdAnnuler, &QPushButton::clicked, this, [this] { QDialog::reject(); });
}

FrmOptions::~FrmOptions() = default;

void FrmOptions::reject() {
  if (PeutAbandonner(boites_, *this)) QDialog::reject();
}

void FrmOptions::showEvent(QShowEvent *evenement) {
  ZoneAuBesoin::TenirDansLEcran(*this, *evenement, {ui_->Blocs, ui_->Bas, ui_->RangNorme});
  QDialog::showEvent(evenement);
}

void FrmOptions::BrancherPolice(QComboBox *liste, QLabel *exemple) {
  connect(liste, &QComboBox::currentTextChanged, exemple, [exemple](const QString &nom) {
    QFont font(nom);
    font.setPointSizeF(exemple->font().pointSizeF());
    exemple->setFont(font);
    exemple->setText(nom);
  });
}

void FrmOptions::Montrer(const QStringList &polices) {
  const ReglagesPlomex &p = valeurs_.plomex;
  ui_->CboTailleA->addItems(Tailles({8, 9, 10, 11, 12, 14, 16, 18, 20, 22}));
  ui_->CboTailleE->addItems(Tailles({8, 9, 10, 11, 12}));
  for (int place = 0; place < 8; ++place) ui_->CboR->addItem(u'F' + QString::number(5 + place));
  ui_->CboR->addItem(u"ENTR"_s);
  QStringList triees = polices;
  triees.sort(Qt::CaseInsensitive);
  for (QComboBox *liste : {ui_->CboPolicesA, ui_->CboPolicesE}) liste->addItems(triees);
  ui_->LblPolices->setText(QString::number(polices.size()) + u" polices"_s);

  Selectionner(ui_->CboPolicesA,
               NomComplet(polices, p.PoliceA, kLongueurPolice).value_or(p.PoliceA));
  Selectionner(ui_->CboPolicesE,
               NomComplet(polices, p.PoliceE, kLongueurPolice).value_or(p.PoliceE));
  Selectionner(ui_->CboTailleA, TexteTaille(p.TailleA));
  Selectionner(ui_->CboTailleE, TexteTaille(p.TailleE));
  ui_->ChkGA->setChecked(p.GrasA);
  ui_->ChkGE->setChecked(p.GrasE);
  ui_->ChkN->setChecked(p.NePas);
  ui_->ChkM->setChecked(p.Minimise);
  ui_->ChkSL->setChecked(p.SautLigne);
  ui_->ChkSLD->setChecked(p.SautDLigne);
  ui_->ChkDLG->setChecked(p.GrasDLigne);
  ui_->ChkSLP->setChecked(p.SautPLigne);
  ui_->ChkPLG->setChecked(p.GrasPLigne);
  const auto touche = LibelleRaccourci(p.Raccourci);
  ui_->CboR->setCurrentIndex(touche ? touche->place : -1);
  Cocher(optA_, p.AlignA);
  Cocher(optE_, p.AlignE);
  ui_->TxtLiaison->setText(valeurs_.liaisonCP);
  ui_->CboCapitales->addItems({u"la dernière ligne"_s, u"les trois dernières lignes"_s,
                               u"toutes les lignes"_s});  // as `CapitalesNorme` numbers them
  ui_->CboCapitales->setCurrentIndex(static_cast<int>(valeurs_.norme.Capitales));
  ui_->ChkAccents->setChecked(valeurs_.norme.Accents);
  ui_->ChkNorme->setChecked(valeurs_.norme.Active);
  OuvrirNorme(valeurs_.norme.Active);
}

void FrmOptions::OuvrirNorme(bool active) {
  const std::array<QWidget *, 3> choix{ui_->LblCapitales, ui_->CboCapitales, ui_->ChkAccents};
  for (QWidget *un : choix) un->setEnabled(active);
}

void FrmOptions::Confirmer() {
  if (RefuserInenregistrable(boites_, ui_->TxtLiaison->text())) {
    ui_->TxtLiaison->setFocus();
    return;
  }
  ReglagesPlomex &p = valeurs_.plomex;
  p.PoliceA = ui_->CboPolicesA->currentText();
  p.PoliceE = ui_->CboPolicesE->currentText();
  p.TailleA = ui_->CboTailleA->currentText().toShort();
  p.TailleE = ui_->CboTailleE->currentText().toShort();
  p.GrasA = ui_->ChkGA->isChecked();
  p.GrasE = ui_->ChkGE->isChecked();
  p.NePas = ui_->ChkN->isChecked();
  p.Minimise = ui_->ChkM->isChecked();
  p.SautLigne = ui_->ChkSL->isChecked();
  p.SautDLigne = ui_->ChkSLD->isChecked();
  p.GrasDLigne = ui_->ChkDLG->isChecked();
  p.SautPLigne = ui_->ChkSLP->isChecked();
  p.GrasPLigne = ui_->ChkPLG->isChecked();
  if (const int place = ui_->CboR->currentIndex(); place >= 0) p.Raccourci = CodeRaccourci(place);
  p.AlignA = Coche(optA_).value_or(p.AlignA);
  p.AlignE = Coche(optE_).value_or(p.AlignE);
  valeurs_.liaisonCP = ui_->TxtLiaison->text();
  valeurs_.norme.Active = ui_->ChkNorme->isChecked();
  valeurs_.norme.Capitales = static_cast<CapitalesNorme>(ui_->CboCapitales->currentIndex());
  valeurs_.norme.Accents = ui_->ChkAccents->isChecked();
  accept();
}
