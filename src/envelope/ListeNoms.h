#pragma once

#include <QElapsedTimer>
#include <QListWidget>

/// A list that is gone through by keyboard: letters find what begins with them, case and accents
/// aside, the space bar ticks and never searches, and the first arrow takes the row that has the
/// focus.
class ListeNoms : public QListWidget {
  Q_OBJECT

 public:
  using QListWidget::QListWidget;

  void keyboardSearch(const QString &lettres) override;

 protected:
  void keyPressEvent(QKeyEvent *evenement) override;

 private:
  /// The first row from `depart` on, round the end, that begins so; -1 where there is none.
  int Commencant(const QString &debut, int depart) const;

  QString cherche_;         ///< the letters typed so far
  QElapsedTimer derniere_;  ///< since the last of them
};
