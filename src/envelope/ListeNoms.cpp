#include "envelope/ListeNoms.h"

#include "calendar/SansAccents.h"

#include <QApplication>
#include <QKeyEvent>

#include <algorithm>

int ListeNoms::Commencant(const QString &debut, int depart) const {
  const QString voulu = SansAccents(debut);
  for (int i = 0; i < count(); ++i) {
    const int rang = (depart + i) % count();
    if (SansAccents(item(rang)->text()).startsWith(voulu, Qt::CaseInsensitive)) return rang;
  }
  return -1;
}

void ListeNoms::keyboardSearch(const QString &lettres) {
  const bool suite =
      derniere_.isValid() && derniere_.elapsed() < QApplication::keyboardInputInterval();
  derniere_.start();
  const int actuel = std::max(0, currentRow());
  const bool surPlace = currentItem() == nullptr || !currentItem()->isSelected();
  cherche_ = suite ? cherche_ + lettres : lettres;
  int rang = Commencant(cherche_, suite || surPlace ? actuel : actuel + 1);
  if (rang < 0) {  // the last letter is the first of another name, or the same one again
    cherche_ = lettres;
    rang = Commencant(cherche_, actuel + 1);
  }
  if (rang >= 0) setCurrentRow(rang);
}

void ListeNoms::keyPressEvent(QKeyEvent *evenement) {
  QListWidgetItem *actuel = currentItem();
  if (actuel != nullptr && evenement->key() == Qt::Key_Down && !actuel->isSelected()) {
    setCurrentItem(actuel);
  } else if (actuel != nullptr && evenement->key() == Qt::Key_Space &&
             actuel->data(Qt::CheckStateRole).isValid()) {
    actuel->setSelected(true);
    actuel->setCheckState(actuel->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
  } else {
    QListWidget::keyPressEvent(evenement);
  }
}
