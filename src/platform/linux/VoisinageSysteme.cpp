#include "platform/linux/VoisinageSysteme.h"

#include <QDataStream>
#include <QDeadlineTimer>
#include <QDir>
#include <QLocalSocket>
#include <QPointer>
#include <QStandardPaths>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int kReponse = 2000;  // milliseconds

/// The folder is the user's alone: nobody else can answer in his place.
QString CheminPrise(const QString &nom) {
  return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + u"/velmira-"_s + nom;
}

void Recevoir(QLocalSocket *prise, const QPointer<QObject> &contexte,
              const std::function<void(const QStringList &)> &recevoir) {
  QDataStream flux(prise);
  flux.startTransaction();
  QStringList mots;
  flux >> mots;
  if (!flux.commitTransaction()) return;
  prise->write("1");
  prise->flush();
  prise->disconnectFromServer();
  if (contexte) recevoir(mots);
}

}  // namespace

bool VoisinageSysteme::Prendre(const QString &nom, QObject *contexte,
                               const std::function<void(const QStringList &)> &recevoir) {
  const QString chemin = CheminPrise(nom);
  Place place{std::make_unique<QLockFile>(chemin + u".lock"_s), std::make_unique<QLocalServer>()};
  place.verrou->setStaleLockTime(0);  // held as long as its program lives
  if (!place.verrou->tryLock(0) && place.verrou->error() == QLockFile::LockFailedError)
    return false;
  QLocalServer::removeServer(chemin);  // what a killed run has left
  QLocalServer *serveur = place.serveur.get();
  serveur->setSocketOptions(QLocalServer::UserAccessOption);
  QObject::connect(
      serveur, &QLocalServer::newConnection, serveur,
      [serveur, contexte = QPointer(contexte), recevoir] {
        while (QLocalSocket *prise = serveur->nextPendingConnection()) {
          QObject::connect(prise, &QLocalSocket::readyRead, prise,
                           [prise, contexte, recevoir] { Recevoir(prise, contexte, recevoir); });
          QObject::connect(prise, &QLocalSocket::disconnected, prise, &QObject::deleteLater);
        }
      });
  serveur->listen(chemin);  // where that fails nobody can ask, and the name is held all the same
  places_[nom] = std::move(place);
  return true;
}

bool VoisinageSysteme::Demander(const QString &nom, const QStringList &mots) {
  const QString chemin = CheminPrise(nom);
  QLockFile verrou(chemin + u".lock"_s);
  verrou.setStaleLockTime(0);
  if (verrou.tryLock(0) || verrou.error() != QLockFile::LockFailedError) return false;
  QLocalSocket prise;
  // Who has just taken the name may not listen yet.
  for (const QDeadlineTimer limite(kReponse);
       prise.state() != QLocalSocket::ConnectedState && !limite.hasExpired();) {
    prise.connectToServer(chemin);
    if (!prise.waitForConnected(kReponse)) QThread::msleep(50);
  }
  if (prise.state() != QLocalSocket::ConnectedState) return false;
  QByteArray octets;
  QDataStream flux(&octets, QIODevice::WriteOnly);
  flux << mots;
  prise.write(octets);
  prise.flush();
  return prise.waitForReadyRead(kReponse) && prise.read(1) == "1";
}
