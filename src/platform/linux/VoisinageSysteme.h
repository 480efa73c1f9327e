#pragma once

#include "platform/Voisinage.h"

#include <QLocalServer>
#include <QLockFile>

#include <map>
#include <memory>

/// A socket for each name in the user's own folder of the session, and beside it the lock that says
/// who has the name: it goes with its program, however that ends.
class VoisinageSysteme : public Voisinage {
 public:
  bool Prendre(const QString &nom, QObject *contexte,
               const std::function<void(const QStringList &)> &recevoir) override;
  bool Demander(const QString &nom, const QStringList &mots) override;

 private:
  struct Place {
    std::unique_ptr<QLockFile> verrou;
    std::unique_ptr<QLocalServer> serveur;
  };
  std::map<QString, Place> places_;
};
