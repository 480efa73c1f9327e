#pragma once
// Grounds and the colours that are read on them.

#include <QPalette>
#include <QWidget>

#include <cmath>

/// Whether a ground is so dark that light texts stand on it.
inline bool EstSombre(const QColor &fond) {
  return fond.lightness() < 128;
}

/// Whether the windows of a palette are dark.
inline bool EstSombre(const QPalette &palette) {
  return EstSombre(palette.color(QPalette::Window));
}

/// Black or white, whichever is read better on a ground.
inline QColor EncreSur(const QColor &fond) {
  const auto lumiere = [](double canal) { return std::pow(canal, 2.2); };
  const double luminance = 0.2126 * lumiere(fond.redF()) + 0.7152 * lumiere(fond.greenF()) +
                           0.0722 * lumiere(fond.blueF());
  return luminance > 0.18 ? Qt::black : Qt::white;
}

/// Gives a widget a ground, and its texts an ink.
inline void Peindre(QWidget *surface, const QColor &fond, const QColor &encre = Qt::black) {
  QPalette palette = surface->palette();
  palette.setColor(QPalette::Window, fond);
  palette.setColor(QPalette::WindowText, encre);
  surface->setPalette(palette);
}

/// Gives a label's text a colour.
inline void Colorer(QWidget *etiquette, const QColor &couleur) {
  QPalette palette = etiquette->palette();
  palette.setColor(QPalette::WindowText, couleur);
  etiquette->setPalette(palette);
}
