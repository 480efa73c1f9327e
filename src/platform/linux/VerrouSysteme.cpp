#include "platform/Pannes.h"
#include "platform/Verrou.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// The lock belongs to the open file and not to the process: reading the file elsewhere and closing
/// it does not take it away.
struct flock Octets() {
  struct flock verrou {};
  verrou.l_type = F_WRLCK;
  verrou.l_whence = SEEK_SET;
  verrou.l_start = 0x40000000;
  verrou.l_len = 512;
  return verrou;
}

ErreurFichier NonReserve(const QString &chemin, int code) {
  return EchecSysteme(
      u"Le fichier « %1 » n'a pas pu être réservé"_s.arg(QDir::toNativeSeparators(chemin)),
      u"Il n'a pas été modifié."_s, code);
}

QString NomProgramme(pid_t numero) {
  QFile nom(u"/proc/%1/comm"_s.arg(numero));
  return nom.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(nom.readAll()).trimmed()
                                       : QString();
}

}  // namespace

VerrouExclusif::VerrouExclusif(const QString &chemin)
    : chemin_(chemin),
      descripteur_(::open(QFile::encodeName(chemin).constData(), O_RDWR | O_CLOEXEC)) {
  if (descripteur_ < 0) throw NonReserve(chemin, errno);
}

VerrouExclusif::~VerrouExclusif() {
  ::close(descripteur_);
}

bool VerrouExclusif::Prendre() {
  auto verrou = Octets();
  if (::fcntl(descripteur_, F_OFD_SETLK, &verrou) == 0) return true;
  if (errno != EAGAIN && errno != EACCES && errno != EINTR) throw NonReserve(chemin_, errno);
  return false;
}

QString VerrouExclusif::Detenteur() const {
  auto verrou = Octets();
  const bool connu = ::fcntl(descripteur_, F_OFD_GETLK, &verrou) == 0 && verrou.l_type != F_UNLCK &&
                     verrou.l_pid > 0;
  const QString nom = connu ? NomProgramme(verrou.l_pid) : QString();
  return nom.isEmpty() ? nom : u"%1 (%2)"_s.arg(nom).arg(verrou.l_pid);
}

bool VerrouExclusif::EstEnPlace() const {
  struct stat ouvert {
  }, nomme{};
  return ::fstat(descripteur_, &ouvert) == 0 &&
         ::stat(QFile::encodeName(chemin_).constData(), &nomme) == 0 &&
         ouvert.st_dev == nomme.st_dev && ouvert.st_ino == nomme.st_ino;
}
