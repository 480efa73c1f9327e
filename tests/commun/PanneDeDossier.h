#pragma once

#include <cerrno>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

/// The flush of every folder fails by this error while it lives; that of files goes on.
class PanneDeDossier {
 public:
  explicit PanneDeDossier(int erreur) { Erreur() = erreur; }
  ~PanneDeDossier() { Erreur() = 0; }
  PanneDeDossier(const PanneDeDossier &) = delete;
  PanneDeDossier &operator=(const PanneDeDossier &) = delete;

  static int &Erreur() {
    static int erreur = 0;
    return erreur;
  }
};

/// Stands before the system's own in the program that includes this.
extern "C" inline __attribute__((used)) int fsync(int descripteur) {
  struct stat etat {};
  if (PanneDeDossier::Erreur() != 0 && ::fstat(descripteur, &etat) == 0 && S_ISDIR(etat.st_mode)) {
    errno = PanneDeDossier::Erreur();
    return -1;
  }
  return static_cast<int>(::syscall(SYS_fsync, descripteur));
}
