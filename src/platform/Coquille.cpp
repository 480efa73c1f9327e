#include "platform/Coquille.h"

#include "platform/Pannes.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

/// The path of a document; empty for an address that is none on this computer.
QString CheminLocal(const QString &document) {
  return QDir::isAbsolutePath(document) ? document : QUrl(document).toLocalFile();
}

QString TexteEchec(const QString &document) {
  const QString chemin = CheminLocal(document);
  if (chemin.isEmpty())
    return PhraseEchec(
        u"L'adresse « %1 » n'a pas pu être ouverte"_s.arg(document),
        {u"aucun programme du bureau ne l'a acceptée"_s,
         u"Choisissez, dans les réglages du bureau, le programme qui ouvre ces adresses, puis "
         "recommencez."_s},
        {}, {});
  const QString echec =
      u"Le document « %1 » n'a pas pu être ouvert"_s.arg(QDir::toNativeSeparators(chemin));
  if (!QFileInfo::exists(chemin)) return PhraseEchec(echec, PanneSysteme(ENOENT), {}, {});
  return PhraseEchec(echec,
                     {u"aucun programme du bureau ne l'a accepté"_s,
                      u"Installez un programme qui ouvre ce genre de document, ou choisissez-le "
                      "dans les réglages du bureau, puis recommencez."_s},
                     u"Il est intact à cet endroit."_s, {});
}

}  // namespace

void Coquille::Ouvrir(const QString &document) {
  if (!OuvrirSurLeBureau(document)) throw ErreurFichier(TexteEchec(document));
}
