#include "platform/linux/Utilisateur.h"

#include <pwd.h>
#include <unistd.h>

QString NomDuCompte(uid_t compte) {
  const passwd *connu = ::getpwuid(compte);
  const QString nom = connu == nullptr ? QString() : QString::fromLocal8Bit(connu->pw_name);
  return nom.isEmpty() ? QString::number(compte) : nom;
}

QString NomUtilisateur() {
  return NomDuCompte(::getuid());
}
