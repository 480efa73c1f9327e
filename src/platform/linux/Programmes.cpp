#include "platform/linux/Programmes.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

bool EstProgramme(const QString &chemin) {
  const QFileInfo fichier(chemin);
  return fichier.isFile() && fichier.isExecutable();
}

QString TrouverProgramme(const QString &programme) {
  const QString voisin =
      QDir(QCoreApplication::applicationDirPath()).filePath(QFileInfo(programme).fileName());
  return !EstProgramme(programme) && EstProgramme(voisin) ? voisin : programme;
}
