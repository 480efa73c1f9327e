#include "ui/ZoneAuBesoin.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

namespace {

/// What is wanted, where there is no room for it with a bar that scrolls.
QSize DansLaPlace(QSize voulue, const QSize &place, const QWidget &widget) {
  // The bar that scrolls one way takes room the other way.
  const int barre = widget.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &widget);
  if (voulue.height() > place.height()) voulue.rwidth() += barre;
  if (voulue.width() > place.width()) voulue.rheight() += barre;
  return voulue.boundedTo(place);
}

}  // namespace

ZoneAuBesoin::ZoneAuBesoin(QWidget *parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(NoFrame);
  setFocusPolicy(Qt::NoFocus);  // what lies in it brings itself into sight
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *champ) {
    if (champ != nullptr && isAncestorOf(champ)) ensureWidgetVisible(champ);
  });
}

QSize ZoneAuBesoin::sizeHint() const {
  if (widget() == nullptr) return QScrollArea::sizeHint();
  return widget()->minimumSizeHint();
}

QSize ZoneAuBesoin::minimumSizeHint() const {
  constexpr int kLignes = 6;
  const int lignes = kLignes * fontMetrics().lineSpacing();
  if (tient_) {
    const QSize menus(0, 2 * lignes / kLignes);
    return DansLaPlace(sizeHint(), Libre(*screen()).size() - menus, *this);
  }
  return sizeHint().boundedTo({lignes * 2, lignes});
}

QRect ZoneAuBesoin::Libre(const QScreen &ecran) {
  constexpr int kCadre = 4, kTitre = 36;  // at most
  return ecran.availableGeometry().adjusted(kCadre, kTitre, -kCadre, -kCadre);
}

void ZoneAuBesoin::Dimensionner(QWidget &fenetre) {
  if (fenetre.testAttribute(Qt::WA_Resized)) return;
  // What has been filled in since the form was made is still to be heard of.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  fenetre.resize(DansLaPlace(fenetre.sizeHint(), Libre(*fenetre.screen()).size(), fenetre));
  fenetre.setAttribute(Qt::WA_Resized, false);
}

void ZoneAuBesoin::Completer(QWidget &fenetre) {
  QSize manque(0, 0);
  for (const ZoneAuBesoin *zone : fenetre.findChildren<ZoneAuBesoin *>())
    manque = manque.expandedTo(
        {zone->horizontalScrollBar()->maximum(), zone->verticalScrollBar()->maximum()});
  const QRect libre = Libre(*fenetre.screen());
  const QSize voulue = (fenetre.size() + manque).boundedTo(libre.size());
  if (manque.isNull() || voulue == fenetre.size()) return;
  QRect place(fenetre.geometry().topLeft(), voulue);
  place.moveRight(std::min(place.right(), libre.right()));
  place.moveBottom(std::min(place.bottom(), libre.bottom()));
  fenetre.setGeometry(place);
}

void ZoneAuBesoin::TenirDansLEcran(QWidget &dialogue, const QShowEvent &evenement,
                                   const QList<QBoxLayout *> &rangees) {
  if (evenement.spontaneous()) return;
  Dimensionner(dialogue);
  if (dialogue.width() >= dialogue.sizeHint().width()) return;
  for (QBoxLayout *rangee : rangees) rangee->setDirection(QBoxLayout::TopToBottom);
  Dimensionner(dialogue);
}

bool ZoneAuBesoin::eventFilter(QObject *objet, QEvent *evenement) {
  if (objet == widget() && evenement->type() == QEvent::LayoutRequest) updateGeometry();
  return QScrollArea::eventFilter(objet, evenement);
}
