#pragma once

#include "platform/Erreurs.h"

#include <QDir>
#include <QString>

/// Keeps a settings file that could not be read from being written over: throws `ErreurFichier`.
inline void ExigerLu(bool lu, const QString &chemin) {
  using namespace Qt::StringLiterals;
  if (!lu)
    throw ErreurFichier(
        u"Le fichier « %1 » n'a pas été écrit : il n'a pas pu être lu, et les réglages qu'il "
        "contient seraient perdus.\nIl est intact. Vérifiez vos droits sur ce fichier, puis "
        "relancez Velmira."_s.arg(QDir::toNativeSeparators(chemin)));
}
