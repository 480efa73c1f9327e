#include "ui/Icones.h"

#include "ui/Theme.h"

#include <QApplication>
#include <QLabel>
#include <QStandardPaths>

#include <string_view>

using namespace Qt::StringLiterals;

namespace {

constexpr char kIcone[] = "icone", kCote[] = "coteIcone";
constexpr std::u16string_view kLoupe = u"loupe";

}  // namespace

void PreparerIcones() {
  // Not every desktop names its icon folders; they are where all data lie.
  QStringList dossiers = QIcon::themeSearchPaths();
  for (const QString &dossier : QStandardPaths::locateAll(
           QStandardPaths::GenericDataLocation, u"icons"_s, QStandardPaths::LocateDirectory))
    if (!dossiers.contains(dossier)) dossiers.append(dossier);
  QIcon::setThemeSearchPaths(dossiers);

  const QString breeze = EstSombre(QApplication::palette()) ? u"breeze-dark"_s : u"breeze"_s;
  QIcon::setFallbackThemeName(breeze);
  if (QIcon::themeName().isEmpty() || QIcon::themeName() == u"hicolor"_s)
    QIcon::setThemeName(breeze);
  QApplication::setWindowIcon(IconeProgramme());
}

QIcon Icone(const char16_t *nom) {
  if (nom != kLoupe) return QIcon::fromTheme(QString::fromUtf16(nom));
  return QIcon(EstSombre(QApplication::palette()) ? u":/loupe-sombre.svg"_s : u":/loupe.svg"_s);
}

QIcon IconeProgramme() {
  return QIcon(u":/velmira.svg"_s);
}

void PoserIcone(QLabel *etiquette, const QIcon &icone, int cote) {
  etiquette->setProperty(kIcone, icone);
  etiquette->setProperty(kCote, cote);
  MettreIcone(*etiquette, 1);
}

void MettreIcone(QLabel &etiquette, double echelle) {
  const auto icone = etiquette.property(kIcone).value<QIcon>();
  if (icone.isNull()) return;
  const int cote = qRound(etiquette.property(kCote).toInt() * echelle);
  etiquette.setPixmap(icone.pixmap(QSize(cote, cote), etiquette.devicePixelRatio()));
}
