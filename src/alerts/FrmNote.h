#pragma once

#include "alerts/NotesMemora.h"

#include <QPlainTextEdit>
#include <QRect>
#include <QTimer>

class QMenu;

/// A sticky note on the screen, with a title bar of the desktop's. Its close box hides it.
class FrmNote : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit FrmNote(const NoteMemora &note);

  int Numero() const { return note_.numero; }
  /// As it is now, with its text and its place.
  const NoteMemora &Note() const { return note_; }

  void ChangerCouleur(const QString &couleur);
  void ChangerPoints(int points);
  void Montrer(bool montree);
  /// Tells at once what would be told in a moment.
  void Poser();

 signals:
  /// Something of it has changed. The text as soon as all keys have been taken, the place when a
  /// movement pauses.
  void Changee(const NoteMemora &note);
  /// Its close box.
  void MasquageDemande(int numero);
  /// It has come to the front.
  void Activee(int numero);
  /// Behind a right click or its keys; `texte` is the menu of the text, which goes after that.
  void MenuDemande(int numero, QPoint place, QMenu *texte);

 protected:
  void contextMenuEvent(QContextMenuEvent *evenement) override;
  void keyPressEvent(QKeyEvent *evenement) override;
  void moveEvent(QMoveEvent *evenement) override;
  void resizeEvent(QResizeEvent *evenement) override;
  void closeEvent(QCloseEvent *evenement) override;
  bool event(QEvent *evenement) override;

 private:
  void Habiller();
  void Placer();
  void NoterPlace();
  void NoterTexte();

  NoteMemora note_;
  QTimer mouvement_, texte_;
  /// Where it stands instead of a place of its own that no screen shows now: that is kept.
  bool empruntee_ = false;
  QRect emprunt_;
};
