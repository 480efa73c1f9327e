// The guide as it is delivered: whatever it links or shows is there, and every window has its page.

#include "Outils.h"
#include "help/Aide.h"

#include <QDirIterator>
#include <QRegularExpression>

static void ExigerAuGuide(const QString &cible, const QString &page = {}) {
  const QString ou = QStringLiteral(VELMIRA_DONNEES) + u"/guide/"_s;
  const QString nom = cible.section(u'#', 0, 0), ancre = cible.section(u'#', 1);
  QFile fichier(ou + (nom.isEmpty() ? page : nom));
  ASSERT_TRUE(fichier.open(QIODevice::ReadOnly))
      << page.toStdString() << ' ' << cible.toStdString();
  EXPECT_TRUE(ancre.isEmpty() || fichier.readAll().contains("id=\"" + ancre.toUtf8() + '"'))
      << page.toStdString() << ' ' << cible.toStdString();
}

TEST(Guide, Mene) {
  static const QRegularExpression kLien(u"(?:href|src)=\"([^\"]+)\""_s);
  QDirIterator pages(QStringLiteral(VELMIRA_DONNEES) + u"/guide"_s, {u"*.html"_s});
  ASSERT_TRUE(pages.hasNext());
  while (pages.hasNext()) {
    QFile page(pages.next());
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString texte = QString::fromUtf8(page.readAll());
    for (const auto &lien : kLien.globalMatch(texte))
      ExigerAuGuide(lien.captured(1), pages.fileName());
  }
  QDirIterator fenetres(QStringLiteral(VELMIRA_SOURCES), {u"Frm*.ui"_s}, QDir::Files,
                        QDirIterator::Subdirectories);
  ASSERT_TRUE(fenetres.hasNext());
  while (fenetres.hasNext()) {
    fenetres.next();
    ExigerAuGuide(PageAide(fenetres.fileInfo().baseName()));
  }
}
