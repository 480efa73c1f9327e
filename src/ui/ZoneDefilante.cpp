#include "ui/ZoneDefilante.h"

#include <QEvent>
#include <QLayout>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>

namespace {

constexpr int kLignesMinimum = 6;

}  // namespace

ZoneDefilante::ZoneDefilante(QWidget *parent) : QScrollArea(parent) {
  setWidgetResizable(true);
  setFrameShape(NoFrame);
  viewport()->setAutoFillBackground(false);
  for (const QScrollBar *barre : {verticalScrollBar(), horizontalScrollBar()})
    connect(barre, &QScrollBar::rangeChanged, this, &ZoneDefilante::AccorderFocus);
  AccorderFocus();
}

void ZoneDefilante::AccorderFocus() {
  const bool defile = verticalScrollBar()->maximum() > 0 || horizontalScrollBar()->maximum() > 0;
  setFocusPolicy(defile ? Qt::StrongFocus : Qt::NoFocus);
}

int ZoneDefilante::HauteurContenu() const {
  const QLayout *contenu = widget() == nullptr ? nullptr : widget()->layout();
  if (contenu == nullptr) return 0;
  return contenu->hasHeightForWidth() ? contenu->totalHeightForWidth(contentsRect().width())
                                      : contenu->totalSizeHint().height();
}

QSize ZoneDefilante::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 20, HauteurContenu()};
}

QSize ZoneDefilante::minimumSizeHint() const {
  return {0, std::min(HauteurContenu(), kLignesMinimum * fontMetrics().lineSpacing())};
}

void ZoneDefilante::resizeEvent(QResizeEvent *evenement) {
  QScrollArea::resizeEvent(evenement);
  // Lines that are broken elsewhere make another height.
  if (evenement->size().width() != evenement->oldSize().width()) updateGeometry();
}

bool ZoneDefilante::eventFilter(QObject *objet, QEvent *evenement) {
  if (objet == widget() && evenement->type() == QEvent::LayoutRequest) {
    widget()->setAutoFillBackground(false);
    updateGeometry();
  }
  return QScrollArea::eventFilter(objet, evenement);
}
