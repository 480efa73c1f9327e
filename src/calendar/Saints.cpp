#include "calendar/Saints.h"

#include "platform/PageDeCode.h"

using namespace Qt::StringLiterals;

QString SaintsDuJour(const QByteArray &fichier, QDate jour) {
  constexpr qsizetype kCle = 1, kNoms = 8;
  const QByteArray cle = jour.toString(u"ddMM"_s).toLatin1();
  for (qsizetype debut = 0; debut < fichier.size();) {
    qsizetype fin = fichier.indexOf('\n', debut);
    if (fin < 0) fin = fichier.size();
    QByteArray ligne = fichier.mid(debut, fin - debut);
    if (ligne.endsWith('\r')) ligne.chop(1);
    if (ligne.mid(kCle, cle.size()) == cle)
      return DepuisPageDeCode(ligne.mid(kNoms).chopped(ligne.size() > kNoms ? 1 : 0));
    debut = fin + 1;
  }
  return {};
}
