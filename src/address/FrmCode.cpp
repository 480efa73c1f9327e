#include "address/FrmCode.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

const QString kNouveau = u"Nouveau/Quitter"_s;

}  // namespace

FrmCode::FrmCode(const QStringList &codes, QWidget *parent) : QDialog(parent) {
  setObjectName(u"FrmCode"_s);
  setWindowTitle(u"Code postal"_s);
  auto *colonne = new QVBoxLayout(this);
  colonne->setSpacing(8);
  auto *liste = new QListWidget(this);
  liste->setObjectName(u"LstCode"_s);
  liste->setAccessibleName(u"Codes postaux de la ville"_s);
  liste->addItems(QStringList{kNouveau, u""_s} + codes);
  auto *titre = new QLabel(u"&Code postal "_s, this);
  titre->setBuddy(liste);
  colonne->addWidget(titre);
  colonne->addWidget(liste);
  auto *bouton = new QPushButton(u"&OK"_s, this);
  bouton->setObjectName(u"Cmd"_s);
  bouton->setDefault(true);
  colonne->addWidget(bouton, 0, Qt::AlignRight);
  connect(liste, &QListWidget::itemClicked, this, &FrmCode::Choisir);
  // Enter takes what the arrow keys have chosen.
  connect(bouton, &QPushButton::clicked, this, [this, liste] {
    if (liste->currentItem() != nullptr) Choisir(liste->currentItem());
  });
}

void FrmCode::Choisir(const QListWidgetItem *element) {
  if (element->text().isEmpty()) return;
  if (element->text() != kNouveau) code_ = element->text();
  accept();
}
