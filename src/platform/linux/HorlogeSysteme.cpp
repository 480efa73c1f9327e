#include "platform/linux/HorlogeSysteme.h"

#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <utility>

QDateTime HorlogeSysteme::Maintenant() const {
  return QDateTime::currentDateTime();
}

void HorlogeSysteme::Pause(std::chrono::milliseconds duree) {
  QEventLoop boucle;
  QTimer::singleShot(duree, Qt::PreciseTimer, &boucle, &QEventLoop::quit);
  boucle.exec(QEventLoop::ExcludeUserInputEvents);
}

void HorlogeSysteme::Attendre(std::chrono::milliseconds duree, const std::function<bool()> &arret) {
  const QDeadlineTimer fin(duree);
  AttendreQue([&] { return fin.hasExpired() || arret(); });
}

void HorlogeSysteme::AttendreQue(const std::function<bool()> &arret) {
  using namespace std::chrono_literals;
  QEventLoop boucle;
  QTimer reveil;
  QObject::connect(&reveil, &QTimer::timeout, &boucle, [&] {
    if (arret()) boucle.quit();
  });
  reveil.start(50ms);
  if (!arret()) boucle.exec();
}

void HorlogeSysteme::Apres(std::chrono::milliseconds delai, QObject *contexte,
                           std::function<void()> action) {
  QTimer::singleShot(delai, contexte, std::move(action));
}
