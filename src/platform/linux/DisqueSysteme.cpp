#include "platform/Disque.h"

#include <QFile>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// The same where the file system has no such renaming; without links it takes two steps.
int RenommerParLien(const char *ancien, const char *nouveau) {
  if (::link(ancien, nouveau) == 0) return ::unlink(ancien);
  if (errno != EPERM && errno != EOPNOTSUPP) return -1;
  if (::access(nouveau, F_OK) != 0) return ::rename(ancien, nouveau);
  errno = EEXIST;
  return -1;
}

}  // namespace

bool SynchroniserFichier(int descripteur) {
  return ::fsync(descripteur) == 0;
}

bool SynchroniserDossier(const QString &dossier) {
  const int fd = ::open(QFile::encodeName(dossier).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (fd < 0) return errno == EACCES;  // it may be written, and not listed
  const bool faite = ::fsync(fd) == 0 || errno == EINVAL || errno == EOPNOTSUPP;
  const int erreur = errno;
  ::close(fd);
  errno = erreur;
  return faite;
}

bool RenommerEnRemplacant(const QString &ancien, const QString &nouveau) {
  return ::rename(QFile::encodeName(ancien).constData(), QFile::encodeName(nouveau).constData()) ==
         0;
}

void RendreAuProprietaire(const QString &fichier, const QString &modele) {
  constexpr auto kInchange = static_cast<uid_t>(-1);
  const QByteArray nom = QFile::encodeName(fichier);
  struct stat ancien {};
  if (::stat(QFile::encodeName(modele).constData(), &ancien) != 0) return;
  // One of one's own groups; the owner is the superuser's to give.
  [[maybe_unused]] const int groupe = ::chown(nom.constData(), kInchange, ancien.st_gid);
  [[maybe_unused]] const int proprietaire = ::chown(nom.constData(), ancien.st_uid, kInchange);
}

Renommage RenommerSansRemplacer(const QString &ancien, const QString &nouveau) {
  const QByteArray de = QFile::encodeName(ancien), vers = QFile::encodeName(nouveau);
  int fait = ::renameat2(AT_FDCWD, de.constData(), AT_FDCWD, vers.constData(), RENAME_NOREPLACE);
  if (fait != 0 && (errno == EINVAL || errno == ENOSYS))
    fait = RenommerParLien(de.constData(), vers.constData());
  if (fait == 0) return Renommage::Fait;
  if (errno == EEXIST) return Renommage::NomPris;
  return errno == EXDEV ? Renommage::AutreDisque : Renommage::Echoue;
}
