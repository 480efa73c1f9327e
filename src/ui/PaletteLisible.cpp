#include "ui/PaletteLisible.h"

#include "ui/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>

#include <algorithm>
#include <utility>

namespace {

// Links and what is disabled stand on panels too, which are tinted.
constexpr double kTexte = 4.5, kInactif = 4, kLien = 6;
constexpr int kPas = 40;

QColor Melange(const QColor &de, const QColor &vers, double part) {
  const auto canal = [part](int a, int b) { return qRound(a + (b - a) * part); };
  return {canal(de.red(), vers.red()), canal(de.green(), vers.green()),
          canal(de.blue(), vers.blue())};
}

/// The first colour on the way from `de` to `vers` that is told from all of `autres`.
QColor Distincte(const QColor &de, const QColor &vers, const QList<QColor> &autres,
                 double contraste) {
  for (int pas = 0; pas <= kPas; ++pas) {
    const QColor couleur = Melange(de, vers, static_cast<double>(pas) / kPas);
    if (std::ranges::all_of(
            autres, [&](const QColor &autre) { return Contraste(couleur, autre) >= contraste; }))
      return couleur;
  }
  return vers;
}

}  // namespace

PaletteLisible::PaletteLisible() {
  Accorder();
  qApp->installEventFilter(this);
}

QPalette PaletteLisible::De(QPalette palette) {
  for (const auto &[encre, fond] : {std::pair(QPalette::WindowText, QPalette::Window),
                                    {QPalette::Text, QPalette::Base},
                                    {QPalette::ButtonText, QPalette::Button}}) {
    const QColor inactive = palette.color(QPalette::Disabled, encre);
    const QColor voulue = Distincte(inactive, palette.color(QPalette::Active, encre),
                                    {palette.color(QPalette::Disabled, fond)}, kInactif);
    if (inactive != voulue) palette.setColor(QPalette::Disabled, encre, voulue);
  }
  for (const auto groupe : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const auto couleur = [&](QPalette::ColorRole role) { return palette.color(groupe, role); };
    const auto accorder = [&](QPalette::ColorRole role, const QColor &voulue) {
      if (couleur(role) != voulue) palette.setColor(groupe, role, voulue);
    };
    const QColor base = couleur(QPalette::Base), fenetre = couleur(QPalette::Window);
    accorder(QPalette::Link,
             Distincte(couleur(QPalette::Link), EncreSur(fenetre), {base, fenetre}, kLien));
    const QColor choisi = couleur(QPalette::HighlightedText);
    accorder(QPalette::Highlight,
             Distincte(couleur(QPalette::Highlight), EstSombre(choisi) ? Qt::white : Qt::black,
                       {choisi}, kTexte));
    const QColor invite = couleur(QPalette::PlaceholderText);
    accorder(QPalette::PlaceholderText, Distincte(Melange(base, invite, invite.alphaF()),
                                                  couleur(QPalette::Text), {base}, kTexte));
  }
  return palette;
}

void PaletteLisible::Accorder() {
  const QScopedValueRollback enCours(enCours_, true);
  QApplication::setPalette(QPalette());  // the desktop's own
  QApplication::setPalette(De(QPalette()));
}

bool PaletteLisible::eventFilter(QObject *objet, QEvent *evenement) {
  if (evenement->type() == QEvent::ApplicationPaletteChange && objet == qApp && !enCours_)
    Accorder();
  return QObject::eventFilter(objet, evenement);
}
