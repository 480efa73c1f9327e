#include "maintenance/FrmLiaison.h"

#include "platform/Enregistrable.h"
#include "ui/Garde.h"
#include "ui/Grandir.h"
#include "ui/Montrable.h"
#include "ui_FrmLiaison.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<char16_t, 4> kSeparateurs{u' ', u'.', u'-', u'_'};
constexpr std::size_t kAutre = kSeparateurs.size();

}  // namespace

FrmLiaison::FrmLiaison(Boites &boites, const QString &separateur, QWidget *parent)
    : QDialog(parent),
      boites_(boites),
      ui_(std::make_unique<Ui::FrmLiaison>()),
      separateur_(separateur) {
  ui_->setupUi(this);
  Grandir(ui_->Lbl, 1.5, true);
  options_ = {ui_->OptL_0, ui_->OptL_1, ui_->OptL_2, ui_->OptL_3, ui_->OptL_4};
  for (std::size_t i = 0; i < options_.size(); ++i)
    connect(options_[i], &QRadioButton::clicked, this,
            Garde(boites_, [this, i](bool) { Choisir(i); }));
  connect(ui_->CmdOK, &QPushButton::clicked, this, &QDialog::accept);
  connect(ui_->Cmdann, &QPushButton::clicked, this, &QDialog::reject);
  Montrer();
}

FrmLiaison::~FrmLiaison() = default;

void FrmLiaison::Montrer() {
  constexpr qsizetype kCaracteres = 40;  // more would not fit the dialog
  const auto connu = std::ranges::find_if(
      kSeparateurs, [this](char16_t signe) { return separateur_ == QChar(signe); });
  options_[static_cast<std::size_t>(connu - kSeparateurs.begin())]->setChecked(true);
  ui_->Lbl->setText(u"\n12"_s + Montrable(separateur_, kCaracteres) + u"34"_s);
}

void FrmLiaison::Choisir(std::size_t option) {
  if (option == kAutre)
    DemanderAutre();
  else
    separateur_ = QChar(kSeparateurs[option]);
  Montrer();
  ui_->CmdOK->setFocus();
}

void FrmLiaison::DemanderAutre() {
  const QString choisi =
      boites_
          .Saisie(u"Caractère de liaison"_s, u"Indiquez le caractère de liaison choisi :"_s, u""_s)
          .value_or(u""_s);
  if (!EstEnregistrable(choisi)) {
    boites_.Attention(
        u"Ce caractère de liaison ne peut pas être enregistré : \"%1\".\nChoisissez-en un autre."_s
            .arg(choisi));
    return;
  }
  separateur_ = choisi;
  if (choisi.isEmpty())
    boites_.Critique(u"Vous avez choisi une chaine vide, le numéro ne sera pas formaté !"_s);
}
