#pragma once

#include "platform/Coquille.h"

/// The desktop's default programs.
class CoquilleSysteme : public Coquille {
 public:
  void Ouvrir(const QString &document) override;
};
