#pragma once

#include <QComboBox>

/// A combo in which a text may be typed as well. It stays as it was typed, enters the list by no
/// means of its own, and is not chosen (`activated`) where the list holds it already.
class ComboSaisie : public QComboBox {
  Q_OBJECT

 public:
  explicit ComboSaisie(QWidget *parent = nullptr);
};
