#pragma once

#include "ui/Degrade.h"

#include <QList>
#include <QWidget>

/// The ground of a window: a gradient from black or a plain colour, and on it the grounds of the
/// window's panels, each in its own `QPalette::Window`. Texts stand on a panel, so that they are
/// read whatever lies behind. A dark theme has darker colours.
class FondDegrade : public QWidget {
  Q_OBJECT

 public:
  explicit FondDegrade(QWidget *parent = nullptr);

  /// The panels, which lie anywhere within this widget; the gradient and their corners are so many
  /// times as large.
  void PoserPanneaux(const QList<QWidget *> &panneaux, double echelle);

  /// A plain colour, or the gradient.
  void Choisir(bool uni);

 protected:
  void paintEvent(QPaintEvent *evenement) override;
  void changeEvent(QEvent *evenement) override;

 private:
  Boites::Couleur Couleur() const;

  QList<QWidget *> panneaux_;
  double echelle_ = 1;
  bool uni_ = false;
};
