#pragma once

#include <QLineEdit>

/// The field of the search. Its keys that edit a text stay its own; those of the window, Ctrl with
/// a letter but for the clipboard, choosing and taking back, are the window's.
class ChampRecherche : public QLineEdit {
  Q_OBJECT

 public:
  using QLineEdit::QLineEdit;

 signals:
  void Abandonnee();
  /// Enter or a key that moves in the list, which is to get it.
  void ListeDemandee(QKeyEvent *touche);

 protected:
  bool event(QEvent *evenement) override;
  void keyPressEvent(QKeyEvent *touche) override;
};
