// Plays scenarios: text files that drive the program by its controls.

#include "player/Scene.h"
#include "ui/CasesVisibles.h"
#include "ui/Echelle.h"
#include "ui/Icones.h"
#include "ui/PaletteLisible.h"

#include <QtWidgets>

#include <cstdio>

namespace {

QPalette PaletteSombre() {
  QPalette palette(QColor(42, 46, 50));
  palette.setColor(QPalette::Base, QColor(27, 30, 32));
  palette.setColor(QPalette::AlternateBase, QColor(48, 53, 58));
  palette.setColor(QPalette::Highlight, QColor(61, 174, 233));
  palette.setColor(QPalette::Link, QColor(29, 153, 243));
  return palette;
}

void PreparerApparence(bool sombre) {
  QApplication::setStyle(u"fusion"_s);
  CasesVisibles::Poser();
  QApplication::setPalette(PaletteLisible::De(sombre ? PaletteSombre() : QPalette()));
  QIcon::setThemeName(sombre ? u"breeze-dark"_s : u"breeze"_s);
  PreparerIcones();
}

std::optional<Echec> Jouer(Application &application, const QString &fichier,
                           const Scene::Options &options, Mesures &mesures) {
  try {
    Scene scene(application, fichier, options);
    const auto faute = scene.Jouer();
    mesures = scene.mesures;
    return faute;
  } catch (const Echec &echec) {
    return echec;
  }
}

/// Twice, at the size as designed and at the largest one: all of the windows is to have grown.
std::optional<Echec> JouerAEchelle(Application &application, const QString &fichier) {
  Mesures dessin, agrandie;
  if (auto faute = Jouer(application, fichier, {{}, {}, kTailleDessin}, dessin)) return faute;
  if (auto faute = Jouer(application, fichier, {{}, {}, kTailleMax}, agrandie)) return faute;
  const QStringList fautes = MalAEchelle(dessin, agrandie, Echelle(kTailleMax));
  if (fautes.isEmpty()) return std::nullopt;
  return Echec{u"not at scale\n    "_s + fautes.join(u"\n    "_s)};
}

}  // namespace

int main(int argc, char *argv[]) {
  // The platform's own screen has less room than the windows take.
  if (qEnvironmentVariable("QT_QPA_PLATFORM", u"offscreen"_s) == u"offscreen")
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" VELMIRA_ECRAN);
  QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
  Application application(argc, argv);
  Application::setQuitOnLastWindowClosed(false);

  QCommandLineParser arguments;
  arguments.addHelpOption();
  arguments.addOptions({{u"world"_s, u"Keep the world of the one file in DIR."_s, u"DIR"_s},
                        {u"captures"_s, u"Write the pictures into DIR."_s, u"DIR"_s},
                        {u"sombre"_s, u"Use dark colours."_s},
                        {u"etroit"_s, u"Use letters of 13 points and the smallest windows."_s},
                        {u"echelle"_s,
                         u"Play each file at the designed and at the largest size, and "
                         "hold the windows of its pictures against each other."_s}});
  arguments.addPositionalArgument(u"FILE"_s, u"Scenarios to play."_s, u"FILE..."_s);
  arguments.process(application);
  const QStringList fichiers = arguments.positionalArguments();
  const QString monde = arguments.value(u"world"_s);
  if (fichiers.isEmpty() || (!monde.isEmpty() && fichiers.size() > 1)) arguments.showHelp(2);

  PreparerApparence(arguments.isSet(u"sombre"_s));
  QTranslator traduction;
  if (traduction.load(u"qtbase_fr"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    Application::installTranslator(&traduction);

  const bool etroit = arguments.isSet(u"etroit"_s);
  if (etroit) {
    QFont police = QApplication::font();
    police.setPointSize(13);
    QApplication::setFont(police);
  }
  int echecs = 0;
  const auto jouer = [&](const QString &fichier) {
    Mesures mesures;
    return arguments.isSet(u"echelle"_s)
               ? JouerAEchelle(application, fichier)
               : Jouer(application, fichier, {monde, arguments.value(u"captures"_s), 0, etroit},
                       mesures);
  };
  for (const QString &fichier : fichiers) {
    const auto faute = jouer(fichier);
    echecs += faute ? 1 : 0;
    const QString issue = faute ? QString::number(faute->ligne) + u": "_s + faute->texte : u" ok"_s;
    std::printf("%s:%s\n", qPrintable(fichier), qPrintable(issue));
    std::fflush(stdout);
  }
  std::printf("%d passed, %d failed\n", static_cast<int>(fichiers.size()) - echecs, echecs);
  return echecs == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
