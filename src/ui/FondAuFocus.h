#pragma once

#include <QColor>
#include <QLineEdit>

/// The ground of a field tells what can be done with it: tinted while it has the focus, so that the
/// eye finds it, a light grey on a light theme, as much lighter than the field on a dark one; that
/// of the window while it is read-only.
class FondAuFocus : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the field. `gris` is the grey of the light theme, 0 to 255.
  FondAuFocus(QLineEdit *champ, int gris);

  /// Another ink for the text; an invalid colour gives back the one of the theme.
  void Encrer(const QColor &encre);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  /// What paints the ground: of a combo's field, the combo.
  QWidget *Surface() const;
  void Peindre(bool focus);

  QLineEdit *champ_;
  int gris_;
  QColor encre_;
};
