#include "envelope/FrmOptions.h"

#include "envelope/Raccourci.h"
#include "ui/CochesLiees.h"
#include "ui/Guillemet.h"
#include "ui/SelectionAuFocus.h"
#include "ui_FrmOptions.h"

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
  Montrer(polices);
  for (const auto &alignements : {optA_, optE_})
    for (QRadioButton *alignement : alignements)
      connect(alignement, &QRadioButton::clicked, this, [this] { ui_->CmdQuitter->setFocus(); });
  connect(ui_->CmdQuitter, &QPushButton::clicked, this, &FrmOptions::Confirmer);
  connect(ui_->CmdAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

FrmOptions::~FrmOptions() = default;

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

  Selectionner(ui_->CboPolicesA, p.PoliceA);
  Selectionner(ui_->CboPolicesE, p.PoliceE);
  Selectionner(ui_->CboTailleA, TexteTaille(p.TailleA));
  Selectionner(ui_->CboTailleE, TexteTaille(p.TailleE));
  ui_->ChkGA->setChecked(p.GrasA == 1);
  ui_->ChkGE->setChecked(p.GrasE == 1);
  ui_->ChkN->setChecked(p.NePas == 1);
  ui_->ChkM->setChecked(p.Minimise == 1);
  ui_->ChkSL->setChecked(p.SautLigne == 1);
  ui_->ChkSLD->setChecked(p.SautDLigne == 1);
  ui_->ChkDLG->setChecked(p.GrasDLigne == 1);
  ui_->ChkSLP->setChecked(p.SautPLigne == 1);
  ui_->ChkPLG->setChecked(p.GrasPLigne == 1);
  const QString touche = LibelleRaccourci(p.Raccourci);
  ui_->CboR->setCurrentIndex(touche.isEmpty() ? -1 : touche.left(1).toInt());
  if (p.AlignA >= 0 && p.AlignA <= 2) optA_[static_cast<std::size_t>(p.AlignA)]->setChecked(true);
  if (p.AlignE >= 0 && p.AlignE <= 2) optE_[static_cast<std::size_t>(p.AlignE)]->setChecked(true);
  ui_->TxtLiaison->setText(valeurs_.liaisonCP);
}

void FrmOptions::Confirmer() {
  if (RefuserGuillemet(boites_, ui_->TxtLiaison->text())) {
    ui_->TxtLiaison->setFocus();
    return;
  }
  ReglagesPlomex &p = valeurs_.plomex;
  const auto coche = [](const QCheckBox *boite) { return static_cast<quint8>(boite->isChecked()); };
  p.PoliceA = ui_->CboPolicesA->currentText();
  p.PoliceE = ui_->CboPolicesE->currentText();
  p.TailleA = ui_->CboTailleA->currentText().toShort();
  p.TailleE = ui_->CboTailleE->currentText().toShort();
  p.GrasA = coche(ui_->ChkGA);
  p.GrasE = coche(ui_->ChkGE);
  p.NePas = coche(ui_->ChkN);
  p.Minimise = coche(ui_->ChkM);
  p.SautLigne = coche(ui_->ChkSL);
  p.SautDLigne = coche(ui_->ChkSLD);
  p.GrasDLigne = coche(ui_->ChkDLG);
  p.SautPLigne = coche(ui_->ChkSLP);
  p.GrasPLigne = coche(ui_->ChkPLG);
  if (const int place = ui_->CboR->currentIndex(); place >= 0) p.Raccourci = CodeRaccourci(place);
  for (qint16 i = 0; i < 3; ++i) {
    if (optA_[static_cast<std::size_t>(i)]->isChecked()) p.AlignA = i;
    if (optE_[static_cast<std::size_t>(i)]->isChecked()) p.AlignE = i;
  }
  valeurs_.liaisonCP = ui_->TxtLiaison->text();
  accept();
}
