#pragma once

#include <QIcon>

/// Chooses where icons come from: the desktop's theme, and Breeze, light or dark as the windows
/// are, for what that theme lacks.
void PreparerIcones();

/// An icon by its freedesktop name.
QIcon Icone(const char16_t *nom);

/// The program's own icon.
QIcon IconeProgramme();
