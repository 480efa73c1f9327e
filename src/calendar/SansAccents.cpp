#include "calendar/SansAccents.h"

#include <string_view>

namespace {

constexpr std::u16string_view kAccentuees =
    u"ÀÁÂÃÄÅàáâãäåÒÓÔÕÖØòóôõöøÈÉÊËèéêëÌÍÎÏìíîïÙÚÛÜùúûüÿÑñÇç";
constexpr std::u16string_view kSimples = u"AAAAAAaaaaaaOOOOOOooooooEEEEeeeeIIIIiiiiUUUUuuuuyNnCc";
static_assert(kAccentuees.size() == kSimples.size());

}  // namespace

QString SansAccents(QString texte) {
  constexpr char16_t kPremiere = u'À';
  for (QChar &lettre : texte) {
    if (lettre < kPremiere) continue;
    if (const auto place = kAccentuees.find(lettre.unicode()); place != kAccentuees.npos)
      lettre = kSimples[place];
  }
  return texte;
}
