#include "platform/linux/Utilisateur.h"

#include <pwd.h>
#include <unistd.h>

QString NomUtilisateur() {
  const passwd *compte = ::getpwuid(::getuid());
  return compte == nullptr ? QString() : QString::fromLocal8Bit(compte->pw_name);
}
