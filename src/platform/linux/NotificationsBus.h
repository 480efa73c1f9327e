#pragma once

#include "platform/Notifications.h"

/// The notifications of the freedesktop interface on the session's bus. Nothing waits for the bus.
class NotificationsBus : public QObject, public Notifications {
  Q_OBJECT

 public:
  NotificationsBus();

  void Montrer(const QString &titre, const QString &texte, QObject *contexte,
               const std::function<void()> &cliquee) override;

 signals:
  void Cliquee(uint numero);

 private slots:
  void RecevoirAction(uint numero, const QString &action);
};
