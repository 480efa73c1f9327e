#pragma once

#include "platform/Polices.h"

class PolicesSysteme : public Polices {
 public:
  QStringList Familles() const override;
};
