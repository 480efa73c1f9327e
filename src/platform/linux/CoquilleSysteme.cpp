#include "platform/linux/CoquilleSysteme.h"

#include <QDesktopServices>
#include <QUrl>

void CoquilleSysteme::Ouvrir(const QString &document) {
  QDesktopServices::openUrl(QUrl::fromLocalFile(document));
}
