#include "directory/FichierPhoto.h"

#include "platform/Erreurs.h"
#include "platform/Fichiers.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::StringLiterals;

std::optional<QByteArray> LirePhoto(const QString &chemin) {
  constexpr qint64 kMaximum = 64 << 20;
  if (QFileInfo(chemin).size() > kMaximum) return std::nullopt;
  return LireSiPossible(chemin);
}

bool PhotoDisparue(const QString &chemin) {
  const QFileInfo fichier(chemin);
  // A link's target may lie on a disk that is not there.
  if (fichier.isRelative() || fichier.isSymLink()) return false;
  bool presente = true;  // for all that is known
  Ignorer([&] { presente = EstPresent(chemin); });
  const QDir dossier = fichier.dir();
  return !presente && dossier.isReadable() && !dossier.isEmpty();
}

QString GenreImage(const QByteArray &octets) {
  if (octets.startsWith("\xFF\xD8\xFF")) return u"jpg"_s;
  if (octets.startsWith("\x89PNG\r\n")) return u"png"_s;
  if (octets.startsWith("GIF8")) return u"gif"_s;
  if (octets.startsWith("BM")) return u"bmp"_s;
  return {};
}
