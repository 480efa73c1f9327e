#pragma once

#include <QStyledItemDelegate>

/// Draws the rows of a list of several selections with a tick before each, which is the selection
/// itself: a selected row has no other ground. Whoever makes it gives it to the list.
class CochesDeSelection : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;
};
