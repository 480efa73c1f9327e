#include "ui/CochesDeSelection.h"

#include <QApplication>

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
