#include "directory/Liens.h"

#include <QRegularExpression>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace {

const QString kCourriel = u"mailto:"_s;

bool EstAdresseSeule(const QString &texte) {
  static const QRegularExpression kAdresse(
      u"\\A[\\p{L}\\p{N}.!$'*+/=^_`{|}~-]+@[\\p{L}\\p{N}-]+(\\.[\\p{L}\\p{N}-]+)*\\z"_s,
      QRegularExpression::UseUnicodePropertiesOption);
  return kAdresse.match(texte).hasMatch();
}

/// A name, with its port only where it cannot be taken for a scheme and its address.
bool CommenceParUnHote(const QString &texte) {
  static const QRegularExpression kHote(
      u"\\A((localhost|[\\p{L}\\p{N}][\\p{L}\\p{N}_-]*(\\.[\\p{L}\\p{N}_-]+)+)(:[0-9]{1,5})?"
      "|[\\p{L}\\p{N}][\\p{L}\\p{N}_-]*)([/?#].*)?\\z"_s,
      QRegularExpression::UseUnicodePropertiesOption);
  return kHote.match(texte).hasMatch();
}

}  // namespace

std::optional<QString> LienCourriel(const QString &adresse) {
  QString seule = adresse.trimmed();
  if (seule.startsWith(kCourriel, Qt::CaseInsensitive)) seule.remove(0, kCourriel.size());
  if (!EstAdresseSeule(seule)) return std::nullopt;
  return kCourriel + seule;
}

std::optional<QString> LienSite(const QString &texte) {
  const QString lien = texte.trimmed();
  if (lien.startsWith(kCourriel, Qt::CaseInsensitive)) return LienCourriel(lien);
  if (CommenceParUnHote(lien)) return u"http://"_s + lien;
  const QUrl url(lien);
  const bool page = url.scheme() == u"http"_s || url.scheme() == u"https"_s;
  if (!page || url.host().isEmpty()) return std::nullopt;
  return lien;
}
