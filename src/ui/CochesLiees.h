#pragma once

#include <QCheckBox>
#include <QList>

/// A box that carries others along: a click on it gives them its state, and while it is ticked none
/// of them can be left off. It belongs to the box.
class CochesLiees : public QObject {
  Q_OBJECT

 public:
  CochesLiees(QCheckBox *maitre, const QList<QCheckBox *> &suivantes);
};
