#include "platform/linux/NotificationsBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QVariantMap>

using namespace Qt::StringLiterals;

namespace {

const QString kService = u"org.freedesktop.Notifications"_s;
const QString kChemin = u"/org/freedesktop/Notifications"_s;
const QString kDefaut = u"default"_s;  // the action of a click on the note itself

QDBusMessage Message(const QString &titre, const QString &texte) {
  QDBusMessage message = QDBusMessage::createMethodCall(kService, kChemin, kService, u"Notify"_s);
  message.setArguments({u"Velmira"_s, 0U, u"velmira"_s, titre, texte.toHtmlEscaped(),
                        QStringList{kDefaut, u"Ouvrir"_s},
                        QVariantMap{{u"desktop-entry"_s, u"vigilo"_s}}, -1});
  return message;
}

}  // namespace

NotificationsBus::NotificationsBus() {
  QDBusConnection::sessionBus().connect(kService, kChemin, kService, u"ActionInvoked"_s, this,
                                        SLOT(RecevoirAction(uint, QString)));
}

void NotificationsBus::Montrer(const QString &titre, const QString &texte, QObject *contexte,
                               const std::function<void()> &cliquee) {
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return;
  auto *attente = new QDBusPendingCallWatcher(bus.asyncCall(Message(titre, texte)), contexte);
  connect(attente, &QDBusPendingCallWatcher::finished, contexte,
          [this, contexte, cliquee](QDBusPendingCallWatcher *recue) {
            const QDBusPendingReply<uint> reponse = *recue;
            recue->deleteLater();
            if (reponse.isError()) return;
            connect(this, &NotificationsBus::Cliquee, contexte,
                    [mien = reponse.value(), cliquee](uint numero) {
                      if (numero == mien) cliquee();
                    });
          });
}

void NotificationsBus::RecevoirAction(uint numero, const QString &action) {
  if (action == kDefaut) emit Cliquee(numero);
}
