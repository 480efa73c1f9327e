// velmira_creer_exemple FOLDER [SEED]: a portable application folder with invented data.

#include "DossierExemple.h"
#include "platform/Erreurs.h"

#include <QGuiApplication>
#include <QLoggingCategory>

#include <cstdio>
#include <pwd.h>
#include <unistd.h>

namespace {

/// Who will see it: the memory of what was told is a user's own.
QString Utilisateur() {
  const passwd *connu = ::getpwuid(::getuid());
  return connu == nullptr ? QString::number(::getuid()) : QString::fromLocal8Bit(connu->pw_name);
}

}  // namespace

int main(int argc, char *argv[]) {
  constexpr std::uint32_t kGraine = 20260615;
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QLoggingCategory::setFilterRules(
      QStringLiteral("default.warning=false"));  // no session is needed
  const QGuiApplication application(argc, argv);

  const QStringList arguments = QGuiApplication::arguments();
  bool lisible = arguments.size() == 2;
  const std::uint32_t graine = arguments.size() == 3 ? arguments[2].toUInt(&lisible) : kGraine;
  if (!lisible) {
    std::fputs("usage: velmira_creer_exemple FOLDER [SEED]\n", stderr);
    return 2;
  }
  try {
    EcrireDossierExemple(arguments[1], graine, {QDate::currentDate(), Utilisateur()});
  } catch (const Erreur &erreur) {
    std::fprintf(stderr, "%s\n", erreur.what());
    return 1;
  }
  return 0;
}
