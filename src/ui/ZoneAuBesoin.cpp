#include "ui/ZoneAuBesoin.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QStyle>

namespace {

void Dimensionner(QWidget &dialogue) {
  // What has been filled in since the form was made is still to be heard of.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  constexpr int kCadre = 8, kTitre = 40;  // what the desktop draws around a window, at most
  const QSize ecran = dialogue.screen()->availableGeometry().size() - QSize(kCadre, kTitre);
  QSize voulue = dialogue.sizeHint();
  // The bar that scrolls one way takes room the other way.
  const int barre = dialogue.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &dialogue);
  if (voulue.height() > ecran.height()) voulue.rwidth() += barre;
  if (voulue.width() > ecran.width()) voulue.rheight() += barre;
  dialogue.resize(voulue.boundedTo(ecran));
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
  return sizeHint().boundedTo({lignes * 2, lignes});
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
