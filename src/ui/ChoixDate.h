#pragma once

#include <QDateEdit>

/// A date that is chosen in a calendar and by nothing else: what it shows is set by the program.
/// The calendar is opened by the mouse, or by Space, Down or F4.
class ChoixDate : public QDateEdit {
  Q_OBJECT

 public:
  explicit ChoixDate(QWidget *parent = nullptr);

  /// Shows a date; an invalid one shows nothing, and the calendar opens on `sinon`.
  void Montrer(QDate jour, QDate sinon);

  /// Room for a date, whether one is shown or not.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// A day has been chosen, be it the one that was shown already.
  void Choisie(QDate jour);

 protected:
  QString textFromDateTime(const QDateTime &jour) const override;
  void keyPressEvent(QKeyEvent *evenement) override;
  void wheelEvent(QWheelEvent *evenement) override;

 private:
  void Ouvrir();

  mutable bool vide_ = false;  ///< no date is shown
};
