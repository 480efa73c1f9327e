#include "directory/FrmTaillepg.h"

#include "ui/Echelle.h"
#include "ui/Garde.h"
#include "ui/SelectionAuFocus.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>

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
      boites_(boites),
      taille_(taille),
      apercu_(std::move(apercu)),
      SLD(new QSlider(Qt::Horizontal, this)),
      LBLValeur(new QLineEdit(this)) {
  setObjectName(u"FrmTaillepg"_s);
  setWindowTitle(u"Taille du programme à l'écran"_s);
  SLD->setObjectName(u"SLD"_s);
  SLD->setAccessibleName(windowTitle());
  SLD->setRange(kMin, kMax);
  SLD->setPageStep(25);
  SLD->setTickInterval(50);
  SLD->setTickPosition(QSlider::TicksBelow);
  SLD->setValue(taille / kTwipsParPixel);
  SLD->setMinimumWidth(fontMetrics().averageCharWidth() * 48);
  LBLValeur->setObjectName(u"LBLValeur"_s);
  LBLValeur->setAccessibleName(u"Taille, de %1 à %2"_s.arg(kMin).arg(kMax));
  LBLValeur->setMaxLength(4);
  LBLValeur->setAlignment(Qt::AlignRight);
  LBLValeur->setFixedWidth(fontMetrics().averageCharWidth() * 9);
  LBLValeur->setText(QString::number(SLD->value()));
  new SelectionAuFocus(LBLValeur);
  auto *note = new QLabel(
      u"Seule la hauteur est modifiée, pour aperçu, par la variation du curseur."_s, this);
  note->setObjectName(u"LblNote"_s);
  auto *annuler = new QPushButton(u"&Annuler"_s, this);
  annuler->setObjectName(u"Cmdann"_s);
  auto *ok = new QPushButton(u"&OK"_s, this);
  ok->setObjectName(u"CmdOK"_s);
  ok->setDefault(true);

  auto *reglage = new QHBoxLayout;
  reglage->setSpacing(12);
  reglage->addWidget(SLD, 1);
  reglage->addWidget(LBLValeur, 0, Qt::AlignTop);
  auto *boutons = new QHBoxLayout;
  boutons->setSpacing(8);
  boutons->addStretch();
  boutons->addWidget(ok);
  boutons->addWidget(annuler);
  auto *colonne = new QVBoxLayout(this);
  colonne->setSpacing(12);
  colonne->setSizeConstraint(QLayout::SetFixedSize);
  colonne->addLayout(reglage);
  colonne->addWidget(note);
  colonne->addLayout(boutons);

  connect(SLD, &QSlider::valueChanged, this, &FrmTaillepg::Glisser);
  connect(LBLValeur, &QLineEdit::textEdited, this, &FrmTaillepg::Taper);
  connect(annuler, &QPushButton::clicked, this, &QDialog::reject);
  connect(ok, &QPushButton::clicked, this, Garde(boites_, [this](bool) { Valider(); }));
}

void FrmTaillepg::Glisser(int valeur) {
  if (Valeur(LBLValeur->text()) != valeur) LBLValeur->setText(QString::number(valeur));
  taille_ = valeur * kTwipsParPixel;
  apercu_(taille_);
}

void FrmTaillepg::Taper(const QString &texte) {
  if (const auto valeur = Valeur(texte)) SLD->setValue(*valeur);
}

void FrmTaillepg::Valider() {
  if (Valeur(LBLValeur->text())) {
    accept();
    return;
  }
  boites_.Information(u"Valeur non conforme !"_s);
  LBLValeur->setText(QString::number(SLD->value()));
  LBLValeur->setFocus();
  LBLValeur->selectAll();
}
