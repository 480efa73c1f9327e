#include "ui/CochesDeSelection.h"

#include "ui/Theme.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

QSize CochesDeSelection::sizeHint(const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const {
  constexpr int kEcart = 4;  // between two ticks
  const QSize taille = QStyledItemDelegate::sizeHint(option, index);
  const int coche = QApplication::style()->pixelMetric(QStyle::PM_IndicatorHeight);
  return {taille.width(), std::max(taille.height(), coche + kEcart)};
}

void CochesDeSelection::initStyleOption(QStyleOptionViewItem *option,
                                        const QModelIndex &index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const bool choisi = option->state.testFlag(QStyle::State_Selected);
  option->features |= QStyleOptionViewItem::HasCheckIndicator;
  option->checkState = choisi ? Qt::Checked : Qt::Unchecked;
  option->state.setFlag(QStyle::State_Selected, false);
}

void CochesDeSelection::paint(QPainter *peintre, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const {
  QStyledItemDelegate::paint(peintre, option, index);
  if (!EstSombre(option.palette.color(QPalette::Base))) return;
  // The toolkit's own box cannot be told from a dark ground.
  QStyleOptionViewItem ligne = option;
  initStyleOption(&ligne, index);
  const QRect boite = QApplication::style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator,
                                                            &ligne, option.widget);
  QColor trait = option.palette.color(QPalette::Text);
  trait.setAlphaF(0.5F);
  peintre->setPen(trait);
  peintre->drawRect(boite.adjusted(0, 0, -1, -1));
}
