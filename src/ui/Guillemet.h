#pragma once

#include "platform/Boites.h"
#include "platform/Enregistrable.h"

/// The records of text files quote their texts, so that no text of theirs may hold the quotation
/// mark. Whether this one does; if so the user is told.
inline bool RefuserGuillemet(Boites &boites, const QString &texte) {
  if (!texte.contains(u'"')) return false;
  boites.Information(QStringLiteral(" Le caractère \" est interdit !"));
  return true;
}

/// The same for every text that such a file would not give back as it is.
inline bool RefuserInenregistrable(Boites &boites, const QString &texte) {
  if (RefuserGuillemet(boites, texte)) return true;
  if (EstEnregistrable(texte)) return false;
  boites.Attention(
      QStringLiteral(
          "« %1 » ne peut pas être enregistré : le fichier des réglages n'admet pas tous "
          "ses caractères.\nRien n'a été changé. Faites un autre choix.")
          .arg(texte));
  return true;
}
