#pragma once

#include <QLayout>
#include <QList>

/// Lays widgets one behind the other like the words of a text: those that do not fit go on in the
/// next line.
class DispositionFluide : public QLayout {
 public:
  explicit DispositionFluide(QWidget *parent);
  ~DispositionFluide() override;

  void addItem(QLayoutItem *element) override { elements_.append(element); }
  int count() const override { return static_cast<int>(elements_.size()); }
  QLayoutItem *itemAt(int rang) const override { return elements_.value(rang); }
  QLayoutItem *takeAt(int rang) override;

  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int largeur) const override;
  QSize sizeHint() const override { return minimumSize(); }
  QSize minimumSize() const override;
  void setGeometry(const QRect &place) override;

 private:
  /// Gives the height; with `poser` the widgets go to their places.
  int Poser(const QRect &place, bool poser) const;

  QList<QLayoutItem *> elements_;
};
