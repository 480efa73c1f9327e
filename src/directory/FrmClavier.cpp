#include "directory/FrmClavier.h"

#include "ui/EchelleProgramme.h"
#include "ui_FrmClavier.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString kTouteLaListe = u"A–Z"_s;

}  // namespace

FrmClavier::FrmClavier(QWidget *bouton)
    : QDialog(bouton->window()), ui_(std::make_unique<Ui::FrmClavier>()) {
  ui_->setupUi(this);
  constexpr int kMarge = 12;
  QFont grasse = font();
  grasse.setBold(true);
  cote_ = QFontMetrics(grasse).horizontalAdvance(kTouteLaListe) + kMarge;
  for (char16_t lettre = u'A'; lettre <= u'Z'; ++lettre)
    AjouterTouche(QChar(lettre), QChar(lettre), QChar(lettre));
  AjouterTouche(kTouteLaListe, u"Toute la liste"_s, u""_s);
  move(bouton->mapToGlobal(QPoint(0, bouton->height())));
}

FrmClavier::~FrmClavier() = default;

void FrmClavier::AjouterTouche(const QString &texte, const QString &nom, const QString &lettre) {
  constexpr int kColonnes = 9;
  const int rang = ui_->Touches->count();
  auto *touche = new QToolButton(this);
  touche->setObjectName(u"EtqC_"_s + QString::number(rang));
  touche->setText(texte);
  touche->setAccessibleName(nom);
  touche->setFixedSize(std::max(cote_, touche->sizeHint().width()), cote_);
  GarderTaille(touche);
  touche->setFocusPolicy(Qt::StrongFocus);
  connect(touche, &QToolButton::clicked, this, [this, lettre] { Choisir(lettre); });
  ui_->Touches->addWidget(touche, rang / kColonnes, rang % kColonnes);
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
