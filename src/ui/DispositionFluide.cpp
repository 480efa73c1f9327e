#include "ui/DispositionFluide.h"

#include <QWidget>

#include <algorithm>

DispositionFluide::DispositionFluide(QWidget *parent) : QLayout(parent) {
  setContentsMargins(0, 0, 0, 0);
}

DispositionFluide::~DispositionFluide() {
  qDeleteAll(elements_);
}

QLayoutItem *DispositionFluide::takeAt(int rang) {
  return rang >= 0 && rang < count() ? elements_.takeAt(rang) : nullptr;
}

int DispositionFluide::heightForWidth(int largeur) const {
  return Poser(QRect(0, 0, largeur, 0), false);
}

QSize DispositionFluide::minimumSize() const {
  QSize taille;
  for (const QLayoutItem *element : elements_) taille = taille.expandedTo(element->minimumSize());
  return taille;
}

void DispositionFluide::setGeometry(const QRect &place) {
  QLayout::setGeometry(place);
  Poser(place, true);
}

int DispositionFluide::Poser(const QRect &place, bool poser) const {
  int x = 0, y = 0, ligne = 0;
  for (QLayoutItem *element : elements_) {
    const QSize taille = element->widget()->sizeHint().boundedTo({place.width(), QWIDGETSIZE_MAX});
    if (x > 0 && x + taille.width() > place.width()) {
      x = 0;
      y += ligne + spacing();
      ligne = 0;
    }
    if (poser) element->setGeometry({place.topLeft() + QPoint(x, y), taille});
    x += taille.width() + 3 * spacing();
    ligne = std::max(ligne, taille.height());
  }
  return y + ligne;
}
