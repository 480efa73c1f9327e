#pragma once

#include "platform/Horloge.h"

/// The clock of the computer, in the time zone of the user.
class HorlogeSysteme : public Horloge {
 public:
  QDateTime Maintenant() const override;
  void Pause(std::chrono::milliseconds duree) override;
  void Attendre(std::chrono::milliseconds duree, const std::function<bool()> &arret) override;
  void AttendreQue(const std::function<bool()> &arret) override;
  void Apres(std::chrono::milliseconds delai, QObject *contexte,
             std::function<void()> action) override;
};
