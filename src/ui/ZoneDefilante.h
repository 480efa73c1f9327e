#pragma once

#include <QScrollArea>

/// Shows what lies in it whole, by its layout, and scrolls it where there is less room. It has no
/// ground of its own, and takes the focus only while there is something to scroll.
class ZoneDefilante : public QScrollArea {
  Q_OBJECT

 public:
  explicit ZoneDefilante(QWidget *parent = nullptr);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent *evenement) override;
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  int HauteurContenu() const;
  void AccorderFocus();
};
