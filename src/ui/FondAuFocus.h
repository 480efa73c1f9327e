#pragma once

#include <QLineEdit>

/// Tints the ground of a field while it has the focus, so that the eye finds it: a light grey on a
/// light theme, as much lighter than the field on a dark one.
class FondAuFocus : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the field. `gris` is the grey of the light theme, 0 to 255.
  FondAuFocus(QLineEdit *champ, int gris);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  QLineEdit *champ_;
  int gris_;
};
