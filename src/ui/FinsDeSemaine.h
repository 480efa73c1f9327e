#pragma once

#include "ui/CouleurNumero.h"

#include <QCalendarWidget>
#include <QTextCharFormat>

/// The toolkit's own red for the ends of the week is read badly on either theme.
inline void ColorerFinsDeSemaine(QCalendarWidget &calendrier) {
  QTextCharFormat format;
  format.setForeground(CouleurNumero(true, calendrier.palette()));
  for (const auto jour : {Qt::Saturday, Qt::Sunday}) calendrier.setWeekdayTextFormat(jour, format);
}
