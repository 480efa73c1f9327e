// velmira_creer_adsl TEXT FILE: sets a text of the HTML subset on A4 pages, as a PDF file.

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QLoggingCategory>
#include <QPdfWriter>
#include <QTextDocument>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

QByteArray Pdf(const QString &texte) {
  QBuffer octets;
  octets.open(QIODevice::WriteOnly);
  {
    QPdfWriter feuille(&octets);
    feuille.setTitle(u"Numérotation et ADSL"_s);
    feuille.setPageSize(QPageSize(QPageSize::A4));
    feuille.setPageMargins(QMarginsF(4, 0, 4, 0), QPageLayout::Millimeter);
    QTextDocument document;
    document.setDefaultFont(QFont(u"Liberation Sans"_s, 10));
    document.setDocumentMargin(0);
    document.setHtml(texte);
    document.print(&feuille);
  }
  return octets.data();
}

}  // namespace

int main(int argc, char *argv[]) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QLoggingCategory::setFilterRules(
      QStringLiteral("default.warning=false"));  // no session is needed
  const QGuiApplication application(argc, argv);
  const QStringList arguments = QGuiApplication::arguments();
  if (arguments.size() != 3) {
    std::fputs("usage: velmira_creer_adsl TEXT FILE\n", stderr);
    return 2;
  }
  try {
    const auto texte = LireFichier(arguments[1]);
    if (!texte) throw ErreurFichier(u"\"%1\" cannot be read"_s.arg(arguments[1]));
    RemplacerFichier(arguments[2], Pdf(QString::fromUtf8(*texte)));
  } catch (const Erreur &erreur) {
    std::fprintf(stderr, "%s\n", erreur.what());
    return 1;
  }
  return 0;
}
