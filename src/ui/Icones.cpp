#include "ui/Icones.h"

#include "ui/Theme.h"

#include <QApplication>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

void PreparerIcones() {
  // Not every desktop names its icon folders; they are where all data lie.
  QStringList dossiers = QIcon::themeSearchPaths();
  for (const QString &dossier : QStandardPaths::locateAll(
           QStandardPaths::GenericDataLocation, u"icons"_s, QStandardPaths::LocateDirectory))
    if (!dossiers.contains(dossier)) dossiers.append(dossier);
  QIcon::setThemeSearchPaths(dossiers);

  const QString breeze = EstSombre(QApplication::palette()) ? u"breeze-dark"_s : u"breeze"_s;
  QIcon::setFallbackThemeName(breeze);
  if (QIcon::themeName().isEmpty() || QIcon::themeName() == u"hicolor"_s)
    QIcon::setThemeName(breeze);
}

QIcon Icone(const char16_t *nom) {
  return QIcon::fromTheme(QString::fromUtf16(nom));
}

QIcon IconeProgramme() {
  return QIcon(u":/velmira.svg"_s);
}
