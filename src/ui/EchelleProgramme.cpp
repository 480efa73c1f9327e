#include "ui/EchelleProgramme.h"

#include "ui/Echelle.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEvent>
#include <QMainWindow>

#include <cmath>

namespace {

constexpr char kFaite[] = "aEchelle";
constexpr char kVraieGrandeur[] = "enMillimetres";

int Longueur(int longueur, double echelle) {
  const bool libre = longueur == 0 || longueur == QWIDGETSIZE_MAX;
  return libre ? longueur : static_cast<int>(std::lround(longueur * echelle));
}

QSize Taille(const QSize &taille, double echelle) {
  return {Longueur(taille.width(), echelle), Longueur(taille.height(), echelle)};
}

void Borner(QWidget &widget, double echelle) {
  const QSize minimum = Taille(widget.minimumSize(), echelle);
  widget.setMaximumSize(Taille(widget.maximumSize(), echelle));
  widget.setMinimumSize(minimum);
}

}  // namespace

EchelleProgramme::EchelleProgramme(qint32 taille)
    : echelle_(Echelle(taille)), police_(QApplication::font()) {
  if (taille == kTailleDessin) return;
  QFont police = police_;
  if (police.pointSizeF() > 0)
    police.setPointSizeF(PointsAEchelle(police.pointSizeF(), echelle_));
  else
    police.setPixelSize(Longueur(police.pixelSize(), echelle_));
  QApplication::setFont(police);
  qApp->installEventFilter(this);
}

EchelleProgramme::~EchelleProgramme() {
  if (QApplication::font() != police_) QApplication::setFont(police_);
}

void EchelleProgramme::Appliquer(QWidget *fenetre) {
  if (echelle_ == 1 || fenetre->property(kFaite).toBool()) return;
  fenetre->setProperty(kFaite, true);
  for (QWidget *controle : fenetre->findChildren<QWidget *>()) {
    if (!controle->property(kVraieGrandeur).toBool()) Borner(*controle, echelle_);
    if (auto *bouton = qobject_cast<QAbstractButton *>(controle))
      bouton->setIconSize(Taille(bouton->iconSize(), echelle_));
  }
  // The other windows are as large as what they hold.
  if (qobject_cast<QMainWindow *>(fenetre) == nullptr) return;
  const QSize taille = Taille(fenetre->size(), echelle_);
  Borner(*fenetre, echelle_);
  fenetre->resize(taille);
}

bool EchelleProgramme::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::Polish && objet->isWidgetType() &&
      objet->objectName().startsWith(QStringLiteral("Frm"))) {
    auto *fenetre = static_cast<QWidget *>(objet);
    if (fenetre->isWindow()) Appliquer(fenetre);
  }
  return QObject::eventFilter(objet, evenement);
}
