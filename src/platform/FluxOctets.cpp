#include "platform/FluxOctets.h"

#include "platform/Pannes.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMorceau = 1 << 16;

ErreurFichier NonLu(const QString &chemin, int code) {
  return EchecSysteme(
      u"Le fichier « %1 » n'a pas pu être lu"_s.arg(QDir::toNativeSeparators(chemin)),
      u"Il n'a pas été modifié."_s, code);
}

}  // namespace

FluxOctets::FluxOctets(const QString &chemin) : fichier_(chemin) {
  if (QFileInfo::exists(chemin) && !QFileInfo(chemin).isFile())
    throw ErreurFichier(u"« %1 » n'est pas un fichier."_s.arg(QDir::toNativeSeparators(chemin)));
  errno = 0;
  if (!fichier_.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) throw NonLu(chemin, errno);
}

bool FluxOctets::Ligne(QByteArray &ligne, qsizetype maximum) {
  ligne.clear();
  if (!Reste()) return false;
  const auto estFin = [](char c) { return c == '\n' || c == '\r'; };
  while (Reste()) {
    const auto debut = tampon_.cbegin() + place_;
    const auto fin = std::find_if(debut, tampon_.cend(), estFin);
    const qsizetype libre = maximum + 1 - ligne.size();
    ligne.append(debut, std::min<qsizetype>(fin - debut, libre));
    place_ = fin - tampon_.cbegin();
    if (fin == tampon_.cend()) continue;
    if (Suivant() == '\r' && Devant() == '\n') Suivant();
    break;
  }
  return true;
}

bool FluxOctets::Remplir() {
  QByteArray octets(kMorceau, Qt::Uninitialized);
  errno = 0;
  const qint64 n = fichier_.read(octets.data(), kMorceau);
  if (n < 0) throw NonLu(fichier_.fileName(), errno);
  octets.truncate(n);
  place_ = 0;
  const bool premier = lus_ == 0;
  lus_ += n;
  tampon_ = premier ? SansMarque(octets) : octets;
  if (seizeBits_) tampon_ = QString(seizeBits_->decode(tampon_)).toUtf8();
  // A piece may hold nothing but a mark, or half a character.
  return !tampon_.isEmpty() || (n > 0 && Remplir());
}

QByteArray FluxOctets::SansMarque(const QByteArray &octets) {
  if (octets.startsWith("\xEF\xBB\xBF")) return octets.sliced(3);
  if (octets.startsWith("\xFF\xFE")) seizeBits_.emplace(QStringDecoder::Utf16LE);
  if (octets.startsWith("\xFE\xFF")) seizeBits_.emplace(QStringDecoder::Utf16BE);
  return seizeBits_ ? octets.sliced(2) : octets;
}
