#pragma once
// Records of comma-separated values: strings in double quotes, numbers as decimal text, one record
// a line, CR LF. A string that holds a double quote cannot be stored.

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <limits>
#include <optional>
#include <type_traits>

/// Reads values one after the other; a line end separates them as a comma does.
class LecteurEnregistrement {
 public:
  explicit LecteurEnregistrement(const QByteArray &octets);

  /// The next value without its quotes; nothing once the text has ended.
  std::optional<QString> Suivant();

  /// Takes the next value. One that cannot be read, or does not fit, leaves `cible` as it was.
  void Lire(QString &cible);
  template <typename Entier>
  requires std::is_integral_v<Entier>
  void Lire(Entier &cible) {
    if (const auto n = Nombre();
        n && *n >= std::numeric_limits<Entier>::min() && *n <= std::numeric_limits<Entier>::max())
      cible = static_cast<Entier>(*n);
  }

 private:
  std::optional<std::int64_t> Nombre();
  void SauterBlancs();

  QString texte_;
  qsizetype position_ = 0;
};

/// Writes one record.
class RedacteurEnregistrement {
 public:
  void Ecrire(const QString &texte);
  void Ecrire(std::int64_t nombre);
  /// The record with its line end.
  QByteArray Octets() const;

 private:
  void Separer();
  QString ligne_;
};
