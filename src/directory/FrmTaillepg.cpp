#include "directory/FrmTaillepg.h"

#include "ui/Brancheur.h"
#include "ui/Echelle.h"
#include "ui/EchelleProgramme.h"
#include "ui/SelectionAuFocus.h"
#include "ui_FrmTaillepg.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace {

constexpr int kTwipsParPixel = 15;
constexpr int kMin = kTailleMin / kTwipsParPixel, kMax = kTailleMax / kTwipsParPixel;

std::optional<int> Valeur(const QString &texte) {
  bool nombre = false;
  const int valeur = texte.trimmed().toInt(&nombre);
  if (!nombre || valeur < kMin || valeur > kMax) return std::nullopt;
  return valeur;
}

}  // namespace

FrmTaillepg::FrmTaillepg(Boites &boites, qint32 taille, std::function<void(qint32)> apercu,
                         QWidget *parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::FrmTaillepg>()),
      boites_(boites),
      taille_(taille),
      apercu_(std::move(apercu)) {
  ui_->setupUi(this);
  const int caractere = fontMetrics().averageCharWidth();
  ui_->SLD->setRange(kMin, kMax);
  ui_->SLD->setValue(taille / kTwipsParPixel);
  ui_->SLD->setMinimumWidth(caractere * 48);
  ui_->LBLValeur->setAccessibleName(u"Taille, de %1 à %2"_s.arg(kMin).arg(kMax));
  ui_->LBLValeur->setFixedWidth(caractere * 9);
  for (QWidget *mesure : {static_cast<QWidget *>(ui_->SLD), static_cast<QWidget *>(ui_->LBLValeur)})
    GarderTaille(mesure);
  ui_->LBLValeur->setText(QString::number(ui_->SLD->value()));
  new SelectionAuFocus(ui_->LBLValeur);

  connect(ui_->SLD, &QSlider::valueChanged, this, &FrmTaillepg::Glisser);
  connect(ui_->LBLValeur, &QLineEdit::textEdited, this, &FrmTaillepg::Taper);
  connect(ui_->Cmdann, &QPushButton::clicked, this, &QDialog::reject);
  Brancheur(boites_, this)(ui_->CmdOK, &FrmTaillepg::Valider);
}

FrmTaillepg::~FrmTaillepg() = default;

void FrmTaillepg::Glisser(int valeur) {
  if (Valeur(ui_->LBLValeur->text()) != valeur) ui_->LBLValeur->setText(QString::number(valeur));
  taille_ = valeur * kTwipsParPixel;
  apercu_(taille_);
}

void FrmTaillepg::Taper(const QString &texte) {
  if (const auto valeur = Valeur(texte)) ui_->SLD->setValue(*valeur);
}

void FrmTaillepg::Valider() {
  if (Valeur(ui_->LBLValeur->text())) {
    accept();
    return;
  }
  boites_.Information(u"Valeur non conforme !"_s);
  ui_->LBLValeur->setText(QString::number(ui_->SLD->value()));
  ui_->LBLValeur->setFocus();
  ui_->LBLValeur->selectAll();
}
