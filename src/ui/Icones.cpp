#include "ui/Icones.h"

#include <QApplication>
#include <QPalette>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

void PreparerIcones() {
  // Not every desktop names its icon folders; they are where all data lie.
  QStringList dossiers = QIcon::themeSearchPaths();
  for (const QString &dossier : QStandardPaths::locateAll(
           QStandardPaths::GenericDataLocation, u"icons"_s, QStandardPaths::LocateDirectory))
    if (!dossiers.contains(dossier)) dossiers.append(dossier);
  QIcon::setThemeSearchPaths(dossiers);

  const bool sombre = QApplication::palette().color(QPalette::Window).lightness() < 128;
  const QString breeze = sombre ? u"breeze-dark"_s : u"breeze"_s;
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
