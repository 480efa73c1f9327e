#pragma once

#include <QLineEdit>

/// Selects the whole text of a field when it gets the focus, by the keyboard or by the mouse.
class SelectionAuFocus : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the field.
  explicit SelectionAuFocus(QLineEdit *champ);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  QLineEdit *champ_;
  bool parLaSouris_ = false;
};
