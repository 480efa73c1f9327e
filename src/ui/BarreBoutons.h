#pragma once

#include "platform/Plateforme.h"
#include "ui/Bulle.h"

#include <QHash>
#include <QKeySequence>
#include <QToolButton>
#include <QWidget>

#include <functional>

class QHBoxLayout;
class QMenu;

/// One command of a bar.
struct CommandeBarre {
  const char16_t *icone;           ///< freedesktop name
  QString texte;                   ///< what it does; without its blanks its accessible name
  std::function<void()> executer;  ///< its failure is told to the user
  QString bulle = {};              ///< its tip, none when empty
  TeinteBulle teinte = {};         ///< of the tip
  QKeySequence raccourci = {};
};

/// A row of image buttons, a command each.
class BarreBoutons : public QWidget {
  Q_OBJECT

 public:
  explicit BarreBoutons(QWidget *parent = nullptr);

  /// Before the first button. `nom` begins the names of the buttons: "_" and their places follow.
  /// With `legendes` each bears its text below its icon.
  void Preparer(const Plateforme &plateforme, const QString &nom, bool legendes);

  /// Makes the next button.
  QToolButton *Ajouter(const CommandeBarre &commande);
  /// Leaves a gap before the next button.
  void Separer();

  /// For a command: shows a menu under its button.
  void Derouler(QMenu *menu);

 signals:
  /// The mouse or the focus is on the button of this text; empty when it has left the buttons.
  void Survolee(const QString &texte);

 protected:
  bool eventFilter(QObject *objet, QEvent *evenement) override;

 private:
  QHBoxLayout *rangee_;
  const Plateforme *plateforme_ = nullptr;
  QString nom_;
  bool legendes_ = false;
  QHash<const QObject *, QString> textes_;
  const QToolButton *clique_ = nullptr;  ///< the button that was clicked last
};
