#pragma once

#include <QDateEdit>

/// A date that is chosen in a calendar and by nothing else: what it shows is set by the program.
/// The calendar is opened by the mouse, or by Space, Down or F4.
class ChoixDate : public QDateEdit {
  Q_OBJECT

 public:
  explicit ChoixDate(QWidget *parent = nullptr);

 signals:
  /// A day has been chosen, be it the one that was shown already.
  void Choisie(QDate jour);

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;
  void wheelEvent(QWheelEvent *evenement) override;

 private:
  void Ouvrir();
};
