#pragma once

#include <QByteArray>
#include <QFile>
#include <QStringDecoder>

#include <optional>

/// A text file read in pieces, for what may be larger than memory: as bytes, whatever encodes them.
/// A mark of the encoding at its front is not among them, and a text of 16 bits a character, which
/// such a mark tells, comes as UTF-8. What fails throws `ErreurFichier`.
class FluxOctets {
 public:
  /// Opens a regular file: another may have no end.
  explicit FluxOctets(const QString &chemin);

  /// The next byte; -1 at the end.
  int Suivant() { return Reste() ? static_cast<uchar>(tampon_[place_++]) : -1; }
  /// The same, which stays the next one.
  int Devant() { return Reste() ? static_cast<uchar>(tampon_[place_]) : -1; }

  /// The next line without its end, which is LF, CR LF or CR; false when there is none. Of one
  /// longer than `maximum` that much and one byte more is given, and the rest left out.
  bool Ligne(QByteArray &ligne, qsizetype maximum);

  /// What lies ahead, without reading it: some ten thousand bytes, or all there are.
  QByteArrayView Debut() { return Reste() ? QByteArrayView(tampon_).sliced(place_) : nullptr; }

  qint64 Lu() const { return lus_ - (tampon_.size() - place_); }
  qint64 Taille() const { return fichier_.size(); }

 private:
  bool Reste() { return place_ < tampon_.size() || Remplir(); }
  bool Remplir();
  QByteArray SansMarque(const QByteArray &octets);

  QFile fichier_;
  QByteArray tampon_;
  qsizetype place_ = 0;
  qint64 lus_ = 0;
  std::optional<QStringDecoder> seizeBits_;
};
