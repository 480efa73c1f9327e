#include "ui/TexteExact.h"

#include <QList>
#include <QPlainTextEdit>
#include <QTextBlock>

namespace {

// A line keeps the sign that ends the line before it as its state, which goes with the line.
constexpr int kRetourEtSaut = '\r' << 16 | '\n';

/// The ends of lines as the toolkit finds them in a text.
QList<int> Fins(const QString &texte) {
  QList<int> fins;
  for (qsizetype i = 0; i < texte.size(); ++i) {
    const char16_t signe = texte[i].unicode();
    if (signe == u'\r' && texte.mid(i + 1, 1) == u'\n') {
      fins.append(kRetourEtSaut);
      ++i;
    } else if (signe == u'\n' || signe == u'\r' || signe == QChar::ParagraphSeparator ||
               signe == 0xFDD0 || signe == 0xFDD1) {
      fins.append(signe);
    }
  }
  return fins;
}

QString Fin(int etat) {
  if (etat == kRetourEtSaut) return QStringLiteral("\r\n");
  return etat > 0 ? QChar(etat) : QChar(u'\n');
}

}  // namespace

void MontrerTexte(QPlainTextEdit &zone, const QString &texte) {
  zone.setPlainText(texte);
  QTextBlock ligne = zone.document()->begin();
  for (const int fin : Fins(texte)) {
    ligne = ligne.next();
    if (!ligne.isValid()) return;
    ligne.setUserState(fin);
  }
}

QString TexteExact(const QPlainTextEdit &zone) {
  const QTextBlock premiere = zone.document()->begin();
  QString texte = premiere.text();
  for (QTextBlock ligne = premiere.next(); ligne.isValid(); ligne = ligne.next())
    texte += Fin(ligne.userState()) + ligne.text();
  return texte;
}
