#include "platform/Saisie.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

QDate DateSaisie(const QString &texte) {
  static const QRegularExpression forme(
      uR"(^\s*(\d{1,2})\s*[/.\-]\s*(\d{1,2})\s*[/.\-]\s*(\d{4}|\d{2})\s*$)"_s);
  const auto trouve = forme.match(texte);
  if (!trouve.hasMatch()) return {};
  int annee = trouve.captured(3).toInt();
  if (trouve.capturedLength(3) == 2) annee += annee < 30 ? 2000 : 1900;
  return {annee, trouve.captured(2).toInt(), trouve.captured(1).toInt()};
}

QString EcritureDate(QDate date) {
  return date.toString(u"dd/MM/yyyy"_s);
}

QString SansBlancs(QStringView texte) {
  while (texte.startsWith(u' ')) texte = texte.mid(1);
  while (texte.endsWith(u' ')) texte.chop(1);
  return texte.toString();
}

double NombreSaisi(const QString &texte) {
  static const QRegularExpression forme(
      uR"(^\s*([+-]?(?:(?:\d{1,3}(?:[ \x{A0}\x{2009}\x{202F}]\d{3})+(?!\d)|\d+)[.,]?\d*|[.,]\d+)))"_s);
  const auto trouve = forme.match(texte);
  if (!trouve.hasMatch()) return 0;
  QString nombre = trouve.captured(1).replace(u',', u'.');
  nombre.removeIf([](QChar signe) { return signe.isSpace(); });
  return nombre.toDouble();
}
