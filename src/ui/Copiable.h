#pragma once

#include "ui/EtiquetteElidee.h"
#include "ui/EtiquetteLien.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QToolTip>

#include <type_traits>

/// Puts a text into the clipboard, and says so below the control that it comes from.
inline void Copier(QWidget &controle, const QString &texte) {
  constexpr int kDuree = 1500;
  QGuiApplication::clipboard()->setText(texte);
  QToolTip::showText(controle.mapToGlobal(controle.rect().bottomLeft()), QStringLiteral("Copié"),
                     &controle, {}, kDuree);
}

/// A label that the keyboard reaches, and whose text is copied by Ctrl+C and by its menu: what is
/// selected in it, or all of it.
template <typename Etiquette>
class Copiable : public Etiquette {
 public:
  explicit Copiable(QWidget *parent = nullptr) : Etiquette(parent) {
    this->setFocusPolicy(Qt::StrongFocus);
  }

 protected:
  bool event(QEvent *evenement) override {
    // A command of the window may bear the same keys.
    if (evenement->type() == QEvent::ShortcutOverride && EstCopie(*evenement)) {
      evenement->accept();
      return true;
    }
    return Etiquette::event(evenement);
  }
  void keyPressEvent(QKeyEvent *evenement) override {
    if (EstCopie(*evenement))
      CopierTexte();
    else
      Etiquette::keyPressEvent(evenement);
  }
  void contextMenuEvent(QContextMenuEvent *evenement) override {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction *copier = menu->addAction(QStringLiteral("&Copier"));
    copier->setObjectName(QStringLiteral("mnuCopier"));
    QObject::connect(copier, &QAction::triggered, this, [this] { CopierTexte(); });
    menu->popup(evenement->reason() == QContextMenuEvent::Keyboard
                    ? this->mapToGlobal(this->rect().center())
                    : evenement->globalPos());
  }
  void paintEvent(QPaintEvent *evenement) override {
    Etiquette::paintEvent(evenement);
    if constexpr (!std::is_base_of_v<EtiquetteElidee, Etiquette>)
      if (this->hasFocus()) DessinerFocus(*this);
  }

 private:
  static bool EstCopie(QEvent &evenement) {
    return static_cast<QKeyEvent &>(evenement).matches(QKeySequence::Copy);
  }
  void CopierTexte() {
    Copier(*this, this->hasSelectedText() ? this->selectedText() : this->text());
  }
};

using LigneCopiable = Copiable<EtiquetteElidee>;
using LienCopiable = Copiable<EtiquetteLien>;

/// A text of several lines, of which a part may be selected with the mouse.
class TexteCopiable : public Copiable<QLabel> {
 public:
  explicit TexteCopiable(QWidget *parent = nullptr) : Copiable(parent) {
    setTextInteractionFlags(Qt::TextSelectableByMouse);
    setFocusPolicy(Qt::StrongFocus);  // which the flags have changed
  }
};
