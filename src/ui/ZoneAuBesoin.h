#pragma once

#include <QScrollArea>

/// The body of a dialog: it asks for the room that all in it needs, and scrolls, to whatever gets
/// the focus too, where the screen has less.
class ZoneAuBesoin : public QScrollArea {
  Q_OBJECT

 public:
  explicit ZoneAuBesoin(QWidget *parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  /// Makes a dialog, before it is seen, as large as what it holds and as its screen allows.
  static void TenirDansLEcran(QWidget &dialogue);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;
};
