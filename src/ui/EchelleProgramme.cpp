#include "ui/EchelleProgramme.h"

#include "ui/Echelle.h"
#include "ui/Icones.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QStyle>
#include <QTabWidget>

#include <cmath>

namespace {

constexpr char kFaite[] = "aEchelle";
constexpr char kVraieGrandeur[] = "enMillimetres";
constexpr char kMesuree[] = "mesuree";

bool EstPapier(const QWidget &controle) {
  return controle.property(kVraieGrandeur).toBool();
}

bool EstSurPapier(const QWidget &controle) {
  for (const QWidget *lui = &controle; lui != nullptr; lui = lui->parentWidget())
    if (EstPapier(*lui)) return true;
  return false;
}

}  // namespace

void GarderTaille(QWidget *controle) {
  controle->setProperty(kMesuree, true);
}

EchelleProgramme::EchelleProgramme(qint32 taille)
    : echelle_(Echelle(taille)), police_(QApplication::font()) {
  if (taille == kTailleDessin) return;
  QFont police = police_;
  if (police.pointSizeF() > 0)
    police.setPointSizeF(PointsAEchelle(police.pointSizeF(), echelle_));
  else
    police.setPixelSize(Longueur(police.pixelSize()));
  QApplication::setFont(police);
  qApp->installEventFilter(this);
}

EchelleProgramme::~EchelleProgramme() {
  if (QApplication::font() != police_) QApplication::setFont(police_);
}

int EchelleProgramme::Longueur(int longueur) const {
  const bool libre = longueur <= 0 || longueur == QWIDGETSIZE_MAX;
  return libre ? longueur : static_cast<int>(std::lround(longueur * echelle_));
}

QSize EchelleProgramme::Taille(const QSize &taille) const {
  return {Longueur(taille.width()), Longueur(taille.height())};
}

void EchelleProgramme::MettreControle(QWidget &controle) const {
  if (!controle.property(kMesuree).toBool()) {
    const QSize minimum = Taille(controle.minimumSize());
    controle.setMaximumSize(Taille(controle.maximumSize()));
    controle.setMinimumSize(minimum);
  }
  if (auto *bouton = qobject_cast<QAbstractButton *>(&controle)) {
    bouton->setIconSize(Taille(bouton->iconSize()));
  } else if (auto *liste = qobject_cast<QAbstractItemView *>(&controle)) {
    const int petite = liste->style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, liste);
    liste->setIconSize(
        Taille(liste->iconSize().isValid() ? liste->iconSize() : QSize(petite, petite)));
  } else if (auto *onglets = qobject_cast<QTabWidget *>(&controle)) {
    onglets->setIconSize(Taille(onglets->iconSize()));
  } else if (auto *etiquette = qobject_cast<QLabel *>(&controle)) {
    MettreIcone(*etiquette, echelle_);
  }
}

void EchelleProgramme::MettreDisposition(QLayout &disposition) const {
  auto *rangee = qobject_cast<QBoxLayout *>(&disposition);
  auto *grille = qobject_cast<QGridLayout *>(&disposition);
  if (rangee == nullptr && grille == nullptr) return;
  const QMargins marges = disposition.contentsMargins();
  disposition.setContentsMargins(Longueur(marges.left()), Longueur(marges.top()),
                                 Longueur(marges.right()), Longueur(marges.bottom()));
  if (rangee != nullptr) {
    rangee->setSpacing(Longueur(rangee->spacing()));
  } else {
    grille->setHorizontalSpacing(Longueur(grille->horizontalSpacing()));
    grille->setVerticalSpacing(Longueur(grille->verticalSpacing()));
    for (int i = 0; i < grille->columnCount(); ++i)
      grille->setColumnMinimumWidth(i, Longueur(grille->columnMinimumWidth(i)));
    for (int i = 0; i < grille->rowCount(); ++i)
      grille->setRowMinimumHeight(i, Longueur(grille->rowMinimumHeight(i)));
  }
  for (int i = 0; i < disposition.count(); ++i)
    if (QSpacerItem *vide = disposition.itemAt(i)->spacerItem()) {
      const QSize taille = Taille(vide->sizeHint());
      const QSizePolicy gere = vide->sizePolicy();
      vide->changeSize(taille.width(), taille.height(), gere.horizontalPolicy(),
                       gere.verticalPolicy());
    }
  disposition.invalidate();
}

void EchelleProgramme::MettreFenetre(QWidget &fenetre) const {
  if (fenetre.property(kMesuree).toBool()) return;
  // One without a size of its own becomes as large as what it holds.
  const bool dimensionnee = fenetre.testAttribute(Qt::WA_Resized);
  const QSize taille = Taille(fenetre.size());
  MettreControle(fenetre);
  if (dimensionnee) fenetre.resize(taille);
}

void EchelleProgramme::Appliquer(QWidget *fenetre) {
  if (echelle_ == 1 || fenetre->property(kFaite).toBool() || EstPapier(*fenetre)) return;
  fenetre->setProperty(kFaite, true);
  for (QWidget *controle : fenetre->findChildren<QWidget *>()) {
    if (EstSurPapier(*controle)) continue;
    MettreControle(*controle);
  }
  for (QLayout *disposition : fenetre->findChildren<QLayout *>()) {
    const QWidget *porteur = disposition->parentWidget();
    if (porteur == nullptr || !EstSurPapier(*porteur)) MettreDisposition(*disposition);
  }
  MettreFenetre(*fenetre);
}

bool EchelleProgramme::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::Polish && objet->isWidgetType() &&
      objet->objectName().startsWith(QStringLiteral("Frm"))) {
    auto *fenetre = static_cast<QWidget *>(objet);
    if (fenetre->isWindow()) Appliquer(fenetre);
  }
  return QObject::eventFilter(objet, evenement);
}
