#include "platform/linux/EntreeBureau.h"

using namespace Qt::StringLiterals;

namespace {

/// A value as the file holds it: a line feed in it would begin another key.
QString Valeur(QString texte) {
  texte.replace(u'\\', u"\\\\"_s);
  texte.replace(u'\n', u"\\n"_s).replace(u'\r', u"\\r"_s).replace(u'\t', u"\\t"_s);
  if (texte.startsWith(u' ')) texte.replace(0, 1, u"\\s"_s);
  return texte;
}

/// One word of a command line.
QString MotCommande(const QString &texte) {
  QString mot;
  for (const QChar signe : texte) {
    if (u"\"`$\\"_s.contains(signe)) mot += u'\\';
    if (signe == u'%') mot += u'%';
    mot += signe;
  }
  return u'"' + mot + u'"';
}

}  // namespace

QByteArray EntreeBureau(const QString &nom, const QString &programme, const QString &argument) {
  QString commande = MotCommande(programme);
  if (!argument.isEmpty()) commande += u' ' + MotCommande(argument);
  return u"[Desktop Entry]\nType=Application\nName=%1\nExec=%2\nTerminal=false\n"_s
      .arg(Valeur(nom), Valeur(commande))
      .toUtf8();
}
