#pragma once

#include "platform/Plateforme.h"
#include "ui/Bulle.h"

#include <QHash>
#include <QKeySequence>
#include <QList>
#include <QToolButton>
#include <QWidget>

#include <functional>

class BoutonLegende;
class QHBoxLayout;
class QMenu;

/// One command of a bar.
struct CommandeBarre {
  const char16_t *icone;           ///< as for `Icone`
  QString texte;                   ///< what it does; without its blanks its accessible name
  std::function<void()> executer;  ///< its failure is told to the user
  QString bulle = {};              ///< its tip, none when empty
  TeinteBulle teinte = {};         ///< of the tip
  QKeySequence touche = {};        ///< that does the same; the tip names it
  QString legende = {};            ///< below the icon; `texte` when empty
};

/// A row of image buttons, a command each, in groups on grounds of their own. The buttons bear
/// their captions where the bar is wide enough for all of them, else their icons alone.
class BarreBoutons : public QWidget {
  Q_OBJECT

 public:
  explicit BarreBoutons(QWidget *parent = nullptr);

  /// Before the first button. `nom` begins the names of the buttons: "_" and their numbers follow.
  void Preparer(const Plateforme &plateforme, const QString &nom);

  /// Makes the next button. Its number is its own, wherever it stands.
  QToolButton *Ajouter(int numero, const CommandeBarre &commande);
  /// The next button begins a group.
  void Separer();
  /// The next button begins a group at the right end of the bar.
  void Ecarter();

  /// For a command: shows a menu under its button.
  void Derouler(QMenu *menu);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  /// The mouse or the focus has come on the button of this text; empty when it has left the
  /// buttons, or one has been pressed.
  void Survolee(const QString &texte);
  /// Before the command of a button is run.
  void Lancee();

 protected:
  bool event(QEvent *evenement) override;
  bool eventFilter(QObject *objet, QEvent *evenement) override;
  void resizeEvent(QResizeEvent *evenement) override;
  void paintEvent(QPaintEvent *evenement) override;

 private:
  /// Where the next button goes in the row.
  int Place() const;
  /// How wide the bar is with captions, or without.
  int Largeur(bool legendes) const;
  void ChoisirLegendes();

  QHBoxLayout *rangee_;
  const Plateforme *plateforme_ = nullptr;
  QString nom_;
  bool legendes_ = false;  ///< are shown
  bool ecartee_ = false;   ///< the right end has been begun
  QList<QList<BoutonLegende *>> groupes_;
  QHash<const QObject *, QString> textes_;
  const QToolButton *clique_ = nullptr;  ///< the button that was clicked last
};
