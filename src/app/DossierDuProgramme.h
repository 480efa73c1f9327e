#pragma once

#include "storage/DossierApplication.h"

#include <QCoreApplication>
#include <QStandardPaths>

/// The application folder of the user who runs this program, the same for each of ours that stands
/// in one folder. Throws `ErreurFichier`.
inline QString DossierDuProgramme() {
  return TrouverAppPath(QCoreApplication::applicationDirPath(),
                        QStringLiteral(VELMIRA_INSTALLED_DATA),
                        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                            QStringLiteral("/Velmira"));
}
