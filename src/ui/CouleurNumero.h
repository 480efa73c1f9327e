#pragma once

#include <QPalette>
#include <QWidget>

/// The colour of a telephone number: red when it is on the red list, dark blue otherwise. On a dark
/// ground they would not be read, and lighter ones of the same hue stand for them.
inline QColor CouleurNumero(bool listeRouge, const QPalette &palette) {
  const bool sombre = palette.color(QPalette::Window).lightness() < 128;
  if (listeRouge) return sombre ? QColor(255, 120, 120) : QColor(192, 0, 0);
  return sombre ? QColor(150, 180, 255) : QColor(0, 0, 128);
}

/// Gives a label's text a colour.
inline void Colorer(QWidget *etiquette, const QColor &couleur) {
  QPalette palette = etiquette->palette();
  palette.setColor(QPalette::WindowText, couleur);
  etiquette->setPalette(palette);
}
