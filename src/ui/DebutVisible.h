#pragma once

#include <QLineEdit>

/// Shows the beginning of a text that is longer than its field as long as the field has not the
/// focus: what stands there was put there by the program, or has been typed to its end.
class DebutVisible : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the field, be it the one of a combo.
  explicit DebutVisible(QLineEdit *champ);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  QLineEdit *champ_;
};
