#include "platform/Pannes.h"

#include <cerrno>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kDetail = 200;  // what a damaged file makes the engine say has no end

}  // namespace

Panne PanneSysteme(int code) {
  switch (code) {
    case ENOSPC:
    case EFBIG:
#ifdef EDQUOT
    case EDQUOT:
#endif
      return {u"il n'y a plus de place sur le disque"_s,
              u"Libérez de la place, puis recommencez."_s};
    case EACCES:
    case EPERM:
      return {u"vous n'en avez pas le droit"_s,
              u"Vérifiez vos droits sur le fichier et sur son répertoire, puis recommencez."_s};
    case EROFS:
      return {u"il est protégé en écriture"_s,
              u"Vérifiez vos droits sur le fichier et sur son répertoire, puis recommencez."_s};
    case ELOOP:
    case ENOENT:
    case ENOTDIR:
      return {u"il est introuvable, ou son répertoire l'est"_s,
              u"Vérifiez l'un et l'autre, et que leur disque ou leur serveur répond, puis "
              "recommencez."_s};
    case EISDIR:
      return {u"ce qui porte ce nom n'est pas un fichier"_s,
              u"Déplacez ou renommez ce qui porte ce nom, puis recommencez."_s};
    case EEXIST:
      return {u"ce nom est déjà pris"_s,
              u"Déplacez ou renommez ce qui porte ce nom, puis recommencez."_s};
    case ENAMETOOLONG:
      return {u"son nom est trop long"_s, u"Choisissez un nom plus court."_s};
    case EBUSY:
    case EAGAIN:
    case ETXTBSY:
      return {u"un autre utilisateur ou un autre programme l'occupe"_s,
              u"Attendez qu'il ait fini, puis recommencez."_s};
    case EMFILE:
    case ENFILE:
    case ENOMEM:
      return {u"le système manque de mémoire"_s,
              u"Fermez d'autres programmes, puis recommencez."_s};
    case EIO:
    case ENXIO:
    case ENODEV:
    case ETIMEDOUT:
    case EHOSTUNREACH:
    case ENETUNREACH:
#ifdef ESTALE
    case ESTALE:
#endif
#ifdef EHOSTDOWN
    case EHOSTDOWN:
#endif
      return {u"le disque ou le réseau a fait une erreur"_s,
              u"Vérifiez le disque ou la liaison avec le serveur, puis recommencez."_s};
    default:
      return {u"le système l'a refusé"_s,
              u"Recommencez ; si cela se reproduit, relancez l'ordinateur."_s};
  }
}

QString PhraseEchec(const QString &echec, const Panne &panne, const QString &intact,
                    const QString &detail) {
  QString texte = u"%1 : %2.\n"_s.arg(echec, panne.raison);
  if (!intact.isEmpty()) texte += intact + u' ';
  texte += panne.remede;
  if (!detail.isEmpty()) texte += u"\n\nDétail technique : "_s + detail.simplified().left(kDetail);
  return texte;
}

ErreurFichier EchecSysteme(const QString &echec, const QString &intact, int code,
                           const QString &detail) {
  const QString mots = detail.isEmpty() && code != 0 ? qt_error_string(code) : detail;
  return ErreurFichier(PhraseEchec(echec, PanneSysteme(code), intact, mots));
}
