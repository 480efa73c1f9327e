#pragma once
// What the system gives to one run of the program.

#include "platform/Abandons.h"
#include "platform/Boites.h"
#include "platform/Classeur.h"
#include "platform/Coquille.h"
#include "platform/Horloge.h"
#include "platform/Imprimante.h"
#include "platform/ListeDemarrage.h"
#include "platform/Polices.h"
#include "platform/PortSerie.h"

#include <QLocale>
#include <QString>

struct Plateforme {
  Horloge &horloge;
  Boites &boites;
  Coquille &coquille;
  Imprimante &imprimante;
  Polices &polices;
  ListeDemarrage &demarrage;
  PortSerie &port;
  Classeur &classeur;
  QString utilisateur;  ///< log-on name; records bear it, so it is never empty
  QLocale langue;       ///< names of days
  QString cache;        ///< folder of this user for what can be made again
  Abandons abandons{};  ///< where one goes on, nothing of all this may go
};
