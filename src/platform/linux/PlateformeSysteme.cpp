#include "platform/linux/PlateformeSysteme.h"

#include "platform/linux/Utilisateur.h"

#include <QStandardPaths>

PlateformeSysteme::PlateformeSysteme(const QLocale &langue)
    : plateforme_{horloge_,
                  boites_,
                  coquille_,
                  imprimante_,
                  polices_,
                  demarrage_,
                  port_,
                  classeur_,
                  NomUtilisateur(),
                  langue,
                  QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation) +
                      QStringLiteral("/Velmira")} {}
