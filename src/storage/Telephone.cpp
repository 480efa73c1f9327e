#include "storage/Telephone.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <utility>

namespace {

bool EstChiffre(QChar c) {
  return c >= u'0' && c <= u'9';
}

QString EnPaires(const QString &nombre, const QString &separateur) {
  const qsizetype seul = nombre.size() % 2;
  QString forme = nombre.left(seul);
  for (qsizetype i = seul; i < nombre.size(); i += 2) {
    if (i > 0) forme += separateur;
    forme += QStringView(nombre).mid(i, 2);
  }
  return forme;
}

QString SansLiaison(const QString &texte, const QString &separateur) {
  if (separateur.size() < 2) return texte;
  const QString nombre = texte.split(separateur).join(QString());
  // Digits may be the number's own: they go only out of a text that has the stored form.
  const bool chiffre = std::ranges::any_of(separateur, EstChiffre);
  return !chiffre || EnPaires(nombre, separateur) == texte ? nombre : texte;
}

/// Sign after sign, each wherever it stands. The position goes on while the text shrinks: what
/// stands behind a removed sign is passed over, as many characters as were taken away before it and
/// one more.
QString SansSignes(QString texte) {
  QHash<QChar, qsizetype> passes;  // how often each sign stands in what has been passed
  QSet<QChar> retires;
  qsizetype aPasser = 0;
  for (const QChar c : std::as_const(texte)) {
    if (retires.contains(c)) continue;
    if (aPasser == 0 && !EstChiffre(c)) {
      retires.insert(c);
      aPasser = passes.value(c) + 1;
      continue;
    }
    if (aPasser > 0) --aPasser;
    if (!EstChiffre(c)) ++passes[c];
  }
  texte.removeIf([&retires](QChar c) { return retires.contains(c); });
  return texte;
}

/// What people write around the groups of a number, and what is never a part of one.
QString SansGroupes(QString texte) {
  return texte.removeIf([](QChar c) { return c == u'(' || c == u')' || c == u'/'; });
}

}  // namespace

QString FormatTelephone(const QString &texte, const QString &separateur, const QString &ancien) {
  return texte.isEmpty()
             ? texte
             : EnPaires(SansSignes(SansGroupes(SansLiaison(texte, ancien))), separateur);
}
