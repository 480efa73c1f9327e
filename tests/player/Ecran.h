#pragma once
// The windows on the screen and the controls in them.

#include <QAction>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>

/// A widget, a menu item, or a window itself.
struct Controle {
  QString nom;
  QWidget *fenetre = nullptr;
  QWidget *widget = nullptr;
  QAction *action = nullptr;

  /// Whether it is of this class.
  template <typename Classe>
  Classe *En() const {
    return qobject_cast<Classe *>(widget);
  }

  /// The failure of a command that needs another kind of control.
  QString Sinon(const QString &attendu) const;
};

/// Thrown when a menu or a list that stood open has been closed, as a click beside it does: the
/// command is to be tried again once the program knows.
struct Reessayer {};

/// Finds controls, and gives the focus to windows as a desktop does.
class Ecran : public QObject {
 public:
  Ecran();

  /// The topmost modal dialog, else the window that was shown last; or nullptr.
  QWidget *FenetreActive() const;

  /// A window on the screen or a hidden one; or nullptr.
  static QWidget *Fenetre(const QString &nom);

  /// `Control` of the active window, `Window.Control` of any, or a window. Throws `Echec`.
  Controle Trouver(const QString &nom) const;

  /// The same, for something that the user does: what is hidden, disabled, or behind a dialog is
  /// refused by an `Echec`.
  Controle Atteindre(const QString &nom) const;

  /// Activates the active window when none or another one has the focus.
  void DonnerFocus() const;

  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  QList<QPointer<QWidget>> montrees_;  ///< main windows, the one shown last behind
};
