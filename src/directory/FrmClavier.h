#pragma once

#include <QDialog>

/// The keyboard of initials: a letter narrows the list to the names that begin with it.
class FrmClavier : public QDialog {
  Q_OBJECT

 public:
  /// Stands below the button that opens it.
  explicit FrmClavier(QWidget *bouton);

  /// The letter that was chosen; "AZ" for the whole list.
  const QString &Lettre() const { return lettre_; }

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;

 private:
  void Choisir(const QString &lettre);

  QString lettre_;
};
