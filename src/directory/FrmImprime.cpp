#include "directory/FrmImprime.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array kLibelles{u"Tél. &domicile", u"Tél. &travail", u"&Portable", u"&Fax",
                               u"Adresse &Email", u"Page &Web",     u"&Adresse"};

}  // namespace

FrmImprime::FrmImprime(QWidget *liste) : QDialog(liste->window()) {
  setObjectName(u"FrmImprime"_s);
  setWindowTitle(u"Impression de la liste"_s);
  auto *colonne = new QVBoxLayout(this);
  auto *titre = new QLabel(u"Imprimer..."_s, this);
  titre->setObjectName(u"LblTitre"_s);
  QFont gras = titre->font();
  gras.setBold(true);
  titre->setFont(gras);
  colonne->addWidget(titre);

  auto *continuer = new QPushButton(u"&Continuer"_s, this);
  continuer->setObjectName(u"CmdContinuer"_s);
  continuer->setDefault(true);
  connect(continuer, &QPushButton::clicked, this, &QDialog::accept);
  for (std::size_t i = 0; i < ChkImp.size(); ++i) {
    auto *coche = new QCheckBox(QString::fromUtf16(kLibelles[i]), this);
    coche->setObjectName(u"ChkImp_"_s + QString::number(i));
    coche->setChecked(true);
    connect(coche, &QCheckBox::clicked, continuer, [continuer] { continuer->setFocus(); });
    colonne->addWidget(coche);
    ChkImp[i] = coche;
  }
  colonne->addSpacing(12);
  colonne->addWidget(continuer, 0, Qt::AlignRight);
  resize(liste->width(), sizeHint().height());
  move(liste->mapToGlobal(QPoint()));
}

ChoixListe FrmImprime::Choix() const {
  return {.domicile = ChkImp[0]->isChecked(),
          .travail = ChkImp[1]->isChecked(),
          .portable = ChkImp[2]->isChecked(),
          .fax = ChkImp[3]->isChecked(),
          .mail = ChkImp[4]->isChecked(),
          .web = ChkImp[5]->isChecked(),
          .adresse = ChkImp[6]->isChecked()};
}
