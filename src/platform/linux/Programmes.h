#pragma once

#include <QString>

/// Where a program of ours is: at its path, else under the same name beside this executable. The
/// path as given when it is at neither.
QString TrouverProgramme(const QString &programme);

/// Whether a path is that of something that can be started.
bool EstProgramme(const QString &chemin);
