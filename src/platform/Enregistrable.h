#pragma once

#include "platform/PageDeCode.h"

#include <QString>

/// Whether a text comes back from a record as it was: it holds no double quote and no character
/// outside the code page.
inline bool EstEnregistrable(const QString &texte) {
  return !texte.contains(u'"') && DepuisPageDeCode(VersPageDeCode(texte)) == texte;
}
