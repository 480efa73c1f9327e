#include "platform/PageDeCode.h"

#include <QStringDecoder>
#include <QStringEncoder>

namespace {

constexpr auto kNom = "windows-1252";
constexpr char kSubstitut = '\x1A';  // what the converter puts for a character that it lacks

}  // namespace

QString DepuisPageDeCode(const QByteArray &octets) {
  return QStringDecoder(kNom, QStringConverter::Flag::Stateless)(octets);
}

QByteArray VersPageDeCode(const QString &texte) {
  QStringEncoder convertisseur(kNom, QStringConverter::Flag::Stateless);
  QByteArray octets = convertisseur(texte);
  if (!octets.contains(kSubstitut)) return octets;

  // Some character is missing from the page, or the text itself holds the substitute.
  octets.clear();
  for (qsizetype i = 0; i < texte.size();) {
    const qsizetype n =
        texte[i].isHighSurrogate() && i + 1 < texte.size() && texte[i + 1].isLowSurrogate() ? 2 : 1;
    const QByteArray un = convertisseur(QStringView(texte).mid(i, n));
    const bool manque = un.contains(kSubstitut) && texte[i] != QLatin1Char(kSubstitut);
    octets += manque ? QByteArray("?") : un;
    i += n;
  }
  return octets;
}
