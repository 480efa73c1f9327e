#pragma once
// Grounds and the colours that are read on them.

#include <QPalette>
#include <QWidget>

#include <algorithm>
#include <cmath>

/// Whether a ground is so dark that light texts stand on it.
inline bool EstSombre(const QColor &fond) {
  return fond.lightness() < 128;
}

/// Whether the windows of a palette are dark.
inline bool EstSombre(const QPalette &palette) {
  return EstSombre(palette.color(QPalette::Window));
}

/// Light of a colour, 0 for black and 1 for white.
inline double Luminance(const QColor &couleur) {
  const auto lumiere = [](double canal) { return std::pow(canal, 2.2); };
  return 0.2126 * lumiere(couleur.redF()) + 0.7152 * lumiere(couleur.greenF()) +
         0.0722 * lumiere(couleur.blueF());
}

/// How well an ink is read on a ground, from 1 to 21. A text takes 4.5.
inline double Contraste(const QColor &encre, const QColor &fond) {
  const double a = Luminance(encre), b = Luminance(fond);
  return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

/// Black or white, whichever is read better on a ground.
inline QColor EncreSur(const QColor &fond) {
  return Luminance(fond) > 0.18 ? Qt::black : Qt::white;
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

/// An ink for what is less than the rest, and still read well.
inline QColor EncreDiscrete(const QColor &encre, const QColor &fond) {
  const auto canal = [](float de, float vers) { return de + (vers - de) * 0.25F; };
  return QColor::fromRgbF(canal(encre.redF(), fond.redF()), canal(encre.greenF(), fond.greenF()),
                          canal(encre.blueF(), fond.blueF()));
}
inline QColor EncreDiscrete(const QPalette &palette) {
  return EncreDiscrete(palette.color(QPalette::WindowText), palette.color(QPalette::Window));
}

/// The ink of a link, the palette's where it is read well on the palette's ground.
inline QColor EncreLien(const QPalette &palette) {
  constexpr int kPas = 110;  // percent
  const QColor fond = palette.color(QPalette::Window);
  QColor encre = palette.color(QPalette::Link);
  for (int essai = 0; essai < 10 && Contraste(encre, fond) < 4.5; ++essai)
    encre = EstSombre(fond) ? encre.lighter(kPas) : encre.darker(kPas);
  return encre;
}
