#pragma once
// The windows on the screen, the controls in them, and what a person sees of a control.

#include "player/Analyse.h"

#include <QtWidgets>

/// A widget, a menu item, or a window itself.
struct Controle {
  QString nom;
  QWidget *fenetre = nullptr;
  QObject *objet = nullptr;

  template <typename Classe>
  Classe *En() const {
    return qobject_cast<Classe *>(objet);
  }

  /// What a command needs; another kind of control is an `Echec`.
  template <typename Classe>
  Classe *Comme(const char16_t *attendu) const {
    auto *trouve = En<Classe>();
    Exiger(trouve != nullptr, QStringLiteral("%1: %2 expected, %3 found")
                                  .arg(nom, QString::fromUtf16(attendu),
                                       QString::fromLatin1(objet->metaObject()->className())));
    return trouve;
  }
  QWidget *Widget() const { return Comme<QWidget>(u"a widget"); }

  /// The view of a list, a tree or a combo.
  QAbstractItemView *Vue() const;

  bool EstActif() const { return objet->property("enabled").toBool(); }
  /// What cannot be ticked is an `Echec`.
  bool EstCoche() const;
  bool ALeFoyer() const;

  // Items of a list, nodes of a tree in the displayed order, depth first.
  QModelIndexList Elements() const;
  /// The one meant by `"text"`, `"text"#n`, `#i` or `racine`.
  QModelIndex Element(const Mot &mot) const;
  QModelIndexList Selection() const;
  /// Brings an item into view and tells where it stands.
  QRect Place(const QModelIndex &element) const;
  /// The middle of its box.
  QPoint PlaceDeCase(const QModelIndex &element) const;
};

QStringList Textes(const QModelIndexList &elements);
bool EstCoche(const QModelIndex &element);

/// Thrown when a menu or a list that stood open has been closed, as a click beside it does: the
/// command is to be tried again once the program knows.
struct Reessayer {};

/// Finds controls, and gives the focus to windows as a desktop does.
class Ecran : public QObject {
 public:
  Ecran();

  /// The topmost modal dialog, else the window that was shown last; or nullptr.
  QWidget *FenetreActive() const;
  /// The same; none at all is an `Echec`.
  QWidget *Active() const;

  /// A window on the screen or a hidden one; or nullptr.
  static QWidget *Fenetre(const QString &nom);

  /// `Control` of the active window, `Window.Control` of any, or a window.
  Controle Trouver(const QString &nom) const;

  /// The same, for something that the user does: what is hidden, disabled, or behind a dialog is
  /// an `Echec`.
  Controle Atteindre(const QString &nom) const;

  /// Activates the active window when none or another one has the focus.
  void DonnerFocus() const;

  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  QList<QPointer<QWidget>> montrees_;  ///< main windows, the one shown last behind
};

// What holds for every window.

/// Whether "&" marks a key in the control's text.
bool PorteUneMarque(const QObject &objet);

/// A dialog waits without an hourglass over its buttons. Every control of a window that the
/// keyboard reaches has an accessible name, no mnemonic stands twice in the window or in one of its
/// menus, texts are told from their ground (4.5 to 1) and stand whole in their controls, and the
/// window fits its screen. Throws `Echec`.
void VerifierAccessibilite(const QWidget &fenetre);

/// Sizes of a window and of all that lies in it, to be held against those at another size of the
/// program, by what they are of, as "loupe: FrmLoupe/LblTel, font".
using Mesures = QHash<QString, double>;

/// Adds those of a window, on the screen or not, under the name of a picture.
void Mesurer(const QString &nom, const QWidget &fenetre, Mesures &mesures);

/// What is not so many times as large as in `dessin`, a sentence each.
QStringList MalAEchelle(const Mesures &dessin, const Mesures &agrandie, double echelle);
