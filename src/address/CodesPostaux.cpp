#include "address/CodesPostaux.h"

#include "platform/Fichiers.h"
#include "platform/PageDeCode.h"

using namespace Qt::StringLiterals;

QList<CodePostal> ChercherCodes(const QString &appPath, const QString &texte) {
  return ChercherCodes(LireFichierPresent(appPath + u"/CdPostal.txt"_s), texte);
}

QList<CodePostal> ChercherCodes(const QByteArray &fichier, const QString &texte) {
  const QString contenu = DepuisPageDeCode(fichier);
  QList<CodePostal> trouvees;
  // One search over the whole text, and the line around each find: far fewer steps than lines.
  for (qsizetype i = contenu.indexOf(texte, 0, Qt::CaseInsensitive); i >= 0;) {
    const qsizetype debut = contenu.lastIndexOf(u'\n', i) + 1;
    qsizetype fin = contenu.indexOf(u'\n', i);
    if (fin < 0) fin = contenu.size();
    QString ligne = contenu.mid(debut, fin - debut);
    if (ligne.endsWith(u'\r')) ligne.chop(1);
    trouvees.append({ligne});
    i = fin + 1 < contenu.size() ? contenu.indexOf(texte, fin + 1, Qt::CaseInsensitive) : -1;
  }
  return trouvees;
}
