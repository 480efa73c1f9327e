#include "app/Lancement.h"

#include "storage/DossierApplication.h"
#include "ui/CasesVisibles.h"
#include "ui/Icones.h"

#include <QCryptographicHash>
#include <QLibraryInfo>
#include <QLoggingCategory>
#include <QProcess>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

QStringList MotsDeLaCommande(int argc, char *argv[]) {
  QStringList mots;
  for (int i = 1; i < argc; ++i) mots.append(QString::fromLocal8Bit(argv[i]));
  return mots;
}

int Repondre(const Reponse &reponse) {
  const bool voulue = reponse.statut == 0 || reponse.compteRendu;
  std::fputs(reponse.texte.toUtf8().constData(), voulue ? stdout : stderr);
  return reponse.statut;
}

bool PreparerEcran() {
  if (NommeUnEcran(QProcess::systemEnvironment())) return true;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QLoggingCategory::setFilterRules(u"default.warning=false"_s);
  return false;
}

Allure::Allure(const QString &nom, const QString &bureau) {
  Application::setApplicationName(nom);
  Application::setApplicationVersion(QStringLiteral(VELMIRA_VERSION));
  Application::setDesktopFileName(bureau);
  Application::setQuitOnLastWindowClosed(false);
  CasesVisibles::Poser();
  PreparerIcones();
  // Oui, Non, Annuler
  if (traduction_.load(u"qtbase_fr"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    Application::installTranslator(&traduction_);
}

QLocale LangueDuSysteme() {
  const QLocale systeme = QLocale::system();
  return systeme.language() == QLocale::C ? QLocale(QLocale::French, QLocale::France) : systeme;
}

QString AppPathDuPoste() {
  return TrouverAppPath(
      QCoreApplication::applicationDirPath(), QStringLiteral(VELMIRA_INSTALLED_DATA),
      QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/Velmira"_s);
}

QString NomDeVoisin(const QString &programme, const QString &appPath) {
  const QByteArray empreinte =
      QCryptographicHash::hash(appPath.toUtf8(), QCryptographicHash::Sha256);
  return programme + u'-' + QString::fromLatin1(empreinte.toHex().left(12));
}

int FinirAvec(const Abandons &abandons, int statut) {
  if (abandons.EnCours() == 0) return statut;
  std::fflush(nullptr);
  std::_Exit(statut);
}

bool LancerVelmira(Coquille &coquille, const QString &dossier, const QStringList &arguments) {
  // A portable copy bears the name of the program, an installed one that of its command.
  for (const QString &nom : {u"/Velmira"_s, u"/velmira"_s})
    if (coquille.PeutLancer(dossier + nom) && coquille.Lancer(dossier + nom, arguments))
      return true;
  return false;
}
