#include "directory/FrmClavier.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLettres = 26, kColonnes = 9, kCote = 32;

}  // namespace

FrmClavier::FrmClavier(QWidget *bouton) : QDialog(bouton->window()) {
  setObjectName(u"FrmClavier"_s);
  setWindowTitle(u"Recherche rapide"_s);
  setStyleSheet(
      u"QToolButton { background: white; color: rgb(192, 64, 0); border: 1px solid rgb(192, 64, 0);"
      "  border-radius: 3px; font-weight: bold }"
      "QToolButton:focus { border-width: 2px }"
      "QToolButton:hover { background: rgb(192, 64, 0); color: white }"
      "QToolButton:pressed { padding-left: 2px; padding-top: 2px }"_s);
  auto *grille = new QGridLayout(this);
  grille->setSpacing(4);
  grille->setSizeConstraint(QLayout::SetFixedSize);
  for (int i = 0; i <= kLettres; ++i) {
    const bool toutes = i == kLettres;
    const QString lettre = toutes ? u"AZ"_s : QString(QChar(u'A' + i));
    auto *touche = new QToolButton(this);
    touche->setObjectName(u"EtqC_"_s + QString::number(i));
    touche->setText(toutes ? u"A-Z"_s : lettre);
    touche->setAccessibleName(toutes ? u"Toute la liste"_s : lettre);
    touche->setFixedSize(kCote, kCote);
    touche->setFocusPolicy(Qt::StrongFocus);
    connect(touche, &QToolButton::clicked, this, [this, lettre] { Choisir(lettre); });
    grille->addWidget(touche, i / kColonnes, i % kColonnes);
  }
  move(bouton->mapToGlobal(QPoint(0, bouton->height())));
}

void FrmClavier::keyPressEvent(QKeyEvent *evenement) {
  const QString lettre = evenement->text().toUpper();
  if (lettre.size() == 1 && lettre[0] >= u'A' && lettre[0] <= u'Z')
    Choisir(lettre);
  else
    QDialog::keyPressEvent(evenement);
}

void FrmClavier::Choisir(const QString &lettre) {
  lettre_ = lettre;
  accept();
}
