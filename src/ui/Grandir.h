#pragma once

#include <QApplication>
#include <QWidget>

/// Gives a control the program's font, so many times as large.
inline void Grandir(QWidget *controle, double fois, bool gras = false) {
  QFont police = QApplication::font();
  if (police.pointSizeF() > 0)
    police.setPointSizeF(police.pointSizeF() * fois);
  else
    police.setPixelSize(qRound(police.pixelSize() * fois));
  police.setBold(gras);
  controle->setFont(police);
}
