#pragma once

#include "platform/PageDeCode.h"

#include <QString>

/// Whether the code page has all characters of a text, so that it comes back from a file as it was.
inline bool EstDansLaPage(const QString &texte) {
  return DepuisPageDeCode(VersPageDeCode(texte)) == texte;
}

/// Whether a text comes back from a record as it was: it holds no double quote either.
inline bool EstEnregistrable(const QString &texte) {
  return !texte.contains(u'"') && EstDansLaPage(texte);
}
