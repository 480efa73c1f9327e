#pragma once

#include "platform/Plateforme.h"
#include "platform/linux/BoitesSysteme.h"
#include "platform/linux/ClasseurSysteme.h"
#include "platform/linux/CoquilleSysteme.h"
#include "platform/linux/HorlogeSysteme.h"
#include "platform/linux/ImprimanteSysteme.h"
#include "platform/linux/ListeDemarrageSysteme.h"
#include "platform/linux/PolicesSysteme.h"
#include "platform/linux/PortSerieSysteme.h"

/// All that the system gives to one run, for the programs that have a `Session`.
class PlateformeSysteme {
 public:
  explicit PlateformeSysteme(const QLocale &langue);

  Plateforme &LaPlateforme() { return plateforme_; }

 private:
  HorlogeSysteme horloge_;
  BoitesSysteme boites_;
  CoquilleSysteme coquille_;
  ImprimanteSysteme imprimante_{horloge_};
  PolicesSysteme polices_;
  ListeDemarrageSysteme demarrage_;
  PortSerieSysteme port_;
  ClasseurSysteme classeur_;
  Plateforme plateforme_;
};
