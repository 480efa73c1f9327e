#include "storage/Telephone.h"

#include <algorithm>

QString FormatTelephone(QString texte, const QString &separateur) {
  if (texte.isEmpty()) return texte;
  // The position goes on while the text shrinks: what stands behind a removed sign is passed over.
  const qsizetype longueur = texte.size();
  for (qsizetype i = 0; i < longueur && i < texte.size(); ++i)
    if (const QChar signe = texte[i]; signe < u'0' || signe > u'9') texte.remove(signe);

  QString resultat;
  qsizetype i = 0;
  if (texte.size() % 2 == 1) {
    resultat = texte.left(1) + separateur;
    i = 1;
  }
  for (; i + 1 < texte.size(); i += 2) resultat += texte.mid(i, 2) + separateur;
  resultat.chop(separateur.size());
  return resultat;
}

QString SansLiaison(QString numero, const QString &separateur) {
  const bool chiffre =
      std::ranges::any_of(separateur, [](QChar c) { return c >= u'0' && c <= u'9'; });
  if (!separateur.isEmpty() && !chiffre) numero.remove(separateur);
  return numero;
}
