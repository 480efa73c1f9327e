#include "directory/Numerotation.h"

#include "storage/Telephone.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

bool EstChiffre(QChar signe) {
  return signe >= u'0' && signe <= u'9';
}

/// What the modem sends over the line, or waits for.
bool EstCompose(QChar signe) {
  return EstChiffre(signe) || u"*#,"_s.contains(signe);
}

bool EstBlanc(QChar signe) {
  return u" .-"_s.contains(signe);
}

/// A separator that would be dialled does not stay in a number that was formatted with it.
QString SansLiaisonComposee(const QString &texte, const QString &separateur) {
  const bool composee = std::ranges::any_of(separateur, EstCompose);
  return composee && FormatTelephone(texte, separateur) == texte
             ? FormatTelephone(texte, u" "_s, separateur)
             : texte;
}

struct Refus {
  const char *mot;
  const char16_t *raison;
};

constexpr Refus kRefus[] = {
    {"BUSY", u"la ligne est occupée"},
    {"NO CARRIER", u"la communication n'a pas été établie"},
    {"NO ANSWER", u"personne ne répond"},
    {"NO DIALTONE", u"il n'y a pas de tonalité"},
    {"NO DIAL TONE", u"il n'y a pas de tonalité"},
    {"ERROR", u"le modem refuse la commande"},
};

}  // namespace

bool EstNumero(const QString &texte, const QString &separateur) {
  static const QRegularExpression kNumero(u"^[ (]*\\+?[0-9 .()/*#,-]*[0-9][0-9 .()/*#,-]*$"_s);
  QString nombre = texte;
  if (!separateur.isEmpty()) nombre.replace(separateur, u" "_s);
  return kNumero.match(texte).hasMatch() || kNumero.match(nombre).hasMatch();
}

QString NumeroAComposer(const QString &texte, const QString &separateur) {
  QString numero;
  for (const QChar signe : SansLiaisonComposee(texte, separateur))
    if (EstCompose(signe) || EstBlanc(signe) || (signe == u'+' && numero.trimmed().isEmpty()))
      numero += signe;
  return std::ranges::any_of(numero, EstChiffre) ? numero : QString();
}

std::optional<ReponseModem> LireReponse(const QByteArray &recu) {
  for (const auto &[mot, raison] : kRefus)
    if (recu.contains(mot))
      return ReponseModem{false, QString::fromLatin1(mot), QString::fromUtf16(raison)};
  if (recu.contains("OK")) return ReponseModem{true, u"OK"_s, {}};
  return std::nullopt;
}
