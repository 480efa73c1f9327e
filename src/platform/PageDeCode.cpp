#include "platform/PageDeCode.h"

#include <QStringDecoder>
#include <QStringEncoder>

#include <utility>

namespace {

constexpr auto kNom = "windows-1252";
constexpr char kSubstitut = '\x1A';  // what the converter puts for a character that it lacks

}  // namespace

QString DepuisPageDeCode(const QByteArray &octets) {
  // Finding the converter takes longer than a line of text.
  thread_local QStringDecoder convertisseur(kNom, QStringConverter::Flag::Stateless);
  return convertisseur(octets);
}

std::optional<QString> DepuisUtf8(const QByteArray &octets) {
  constexpr char16_t kMarque = 0xFEFF;
  if (!QUtf8StringView(octets).isValidUtf8()) return std::nullopt;
  QString texte = QString::fromUtf8(octets);
  // The conversion leaves out a mark at the front.
  if (octets.startsWith("\xEF\xBB\xBF")) texte.prepend(QChar(kMarque));
  return texte;
}

QString DepuisUtf8OuPageDeCode(const QByteArray &octets) {
  auto texte = DepuisUtf8(octets);
  return texte ? *std::move(texte) : DepuisPageDeCode(octets);
}

QByteArray VersPageDeCode(const QString &texte) {
  QStringEncoder convertisseur(kNom, QStringConverter::Flag::Stateless);
  QByteArray octets = convertisseur(texte);
  // One byte a character, unless half of a pair stands alone.
  if (octets.size() == texte.size() && !octets.contains(kSubstitut)) return octets;

  octets.clear();
  for (qsizetype i = 0; i < texte.size(); ++i) {
    const bool paire =
        texte[i].isHighSurrogate() && i + 1 < texte.size() && texte[i + 1].isLowSurrogate();
    const QByteArray un = texte[i].isSurrogate() ? QByteArray() : convertisseur(texte.mid(i, 1));
    const bool manque = un.size() != 1 || (un[0] == kSubstitut && texte[i] != u'\x1A');
    octets += manque ? '?' : un[0];
    if (paire) ++i;
  }
  return octets;
}
