// velmira_creer_base FILE: replaces FILE by an empty database.

#include "platform/Fichiers.h"
#include "storage/Base.h"
#include "storage/Schema.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

int main(int argc, char *argv[]) {
  const QCoreApplication application(argc, argv);
  const QStringList arguments = QCoreApplication::arguments();
  if (arguments.size() != 2) {
    std::fputs("usage: velmira_creer_base FILE\n", stderr);
    return 2;
  }
  try {
    if (QFile::exists(arguments[1])) EffacerFichier(arguments[1]);
    CreerBaseVide(arguments[1]);
  } catch (const Erreur &erreur) {
    std::fprintf(stderr, "%s\n", erreur.what());
    return 1;
  }
  return 0;
}
