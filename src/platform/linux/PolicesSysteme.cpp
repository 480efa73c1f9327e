#include "platform/linux/PolicesSysteme.h"

#include <QFontDatabase>

QStringList PolicesSysteme::Familles() const {
  QStringList familles;
  for (const QString &famille : QFontDatabase::families())
    if (!QFontDatabase::isPrivateFamily(famille)) familles.append(famille);
  familles.sort(Qt::CaseInsensitive);
  return familles;
}
