#pragma once

#include <QComboBox>

/// A combo in which a text may be typed as well. It stays as it was typed, enters the list by no
/// means of its own, and is not chosen (`activated`) where the list holds it already.
class ComboSaisie : public QComboBox {
  Q_OBJECT

 public:
  explicit ComboSaisie(QWidget *parent = nullptr);

 signals:
  /// The user has put something in: this is the whole text now. Nothing is told of what is erased.
  void Tapee(const QString &texte);

 private:
  int debut_ = 0;  ///< where what is typed next will stand
};
