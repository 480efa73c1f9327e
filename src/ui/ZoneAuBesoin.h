#pragma once

#include <QBoxLayout>
#include <QList>
#include <QScrollArea>
#include <QShowEvent>

/// The body of a dialog: it asks for the room that all in it needs, and scrolls, to whatever gets
/// the focus too, where the screen has less.
class ZoneAuBesoin : public QScrollArea {
  Q_OBJECT

 public:
  explicit ZoneAuBesoin(QWidget *parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  /// Makes a dialog as large as what it holds and as its screen allows. On one that is too narrow
  /// what stands in `rangees` side by side is put below each other. For its event of being shown,
  /// before the toolkit has it, which finds the place for that size; once it has been shown it
  /// keeps the size that its user gives it.
  static void TenirDansLEcran(QWidget &dialogue, const QShowEvent &evenement,
                              const QList<QBoxLayout *> &rangees);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;
};
