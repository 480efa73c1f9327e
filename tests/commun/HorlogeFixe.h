#pragma once

#include "platform/Horloge.h"

/// It is 5 June 2026, 9:08:07, and stays so.
class HorlogeFixe : public Horloge {
 public:
  QDateTime Maintenant() const override { return {QDate(2026, 6, 5), QTime(9, 8, 7)}; }
  void Pause(std::chrono::milliseconds) override {}
  void Attendre(std::chrono::milliseconds, const std::function<bool()> &) override {}
  void AttendreQue(const std::function<bool()> &) override {}
  void Apres(std::chrono::milliseconds, QObject *, std::function<void()>) override {}
};
