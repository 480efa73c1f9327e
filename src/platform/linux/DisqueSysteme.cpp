#include "platform/Disque.h"

#include <QFile>

#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

bool SynchroniserFichier(int descripteur) {
  return ::fsync(descripteur) == 0;
}

void SynchroniserDossier(const QString &dossier) {
  const int fd = ::open(QFile::encodeName(dossier).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return;
  ::fsync(fd);
  ::close(fd);
}

bool RenommerEnRemplacant(const QString &ancien, const QString &nouveau) {
  return ::rename(QFile::encodeName(ancien).constData(), QFile::encodeName(nouveau).constData()) ==
         0;
}
