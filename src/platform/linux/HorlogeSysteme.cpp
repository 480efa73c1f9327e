#include "platform/linux/HorlogeSysteme.h"

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

void HorlogeSysteme::Apres(std::chrono::milliseconds delai, QObject *contexte,
                           std::function<void()> action) {
  QTimer::singleShot(delai, contexte, std::move(action));
}
